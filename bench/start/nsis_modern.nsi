# The same in the modern interface.
Target amd64-unicode
!include nsis_products.nsh
!include MUI2.nsh
!insertmacro MUI_PAGE_LICENSE "${LICENCE}"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_LANGUAGE English
!insertmacro Products
