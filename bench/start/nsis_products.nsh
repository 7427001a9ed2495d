# What both installers have: the launcher's seven products, of which nothing is
# installed.
Unicode true
Name "Peer"
OutFile "${OUTPUT}"
InstallDir "$TEMP\peer"
RequestExecutionLevel admin

!macro Product TITLE
  Section "${TITLE}"
  SectionEnd
!macroend
!macro Products
  !insertmacro Product "Common Runtime"
  !insertmacro Product "Inspection Station"
  !insertmacro Product "Sensor Drivers"
  !insertmacro Product "Gear Evaluation"
  !insertmacro Product "Optical Measuring"
  !insertmacro Product "Report Designer"
  !insertmacro Product "Measuring Handbook"
!macroend
