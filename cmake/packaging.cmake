# What the Debian package of the host programs holds; ./package makes it.

include(GNUInstallDirs)
set(programs lib/${PROJECT_NAME})
set(documents ${CMAKE_BINARY_DIR}/package-documents)

# The programs that users start stand in bin; they find the rest beside them.
install(TARGETS trelin trelin-check trelin-status demo_installer demo_readme DESTINATION ${programs})
install(FILES ${CMAKE_BINARY_DIR}/ENU35000.DLL DESTINATION ${programs})
install(PROGRAMS packaging/trelin packaging/trelin-demo DESTINATION bin)
foreach(program trelin-check trelin-status)
  install(CODE "file(CREATE_LINK ../${programs}/${program}
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/bin/${program}\" SYMBOLIC)")
endforeach()

install(PROGRAMS demo/lay_out DESTINATION share/${PROJECT_NAME}/demo)
install(FILES demo/TRELIN.CFG demo/records.reg DESTINATION share/${PROJECT_NAME}/demo)
install(DIRECTORY demo/texts DESTINATION share/${PROJECT_NAME}/demo FILES_MATCHING PATTERN *.txt)
install(DIRECTORY demo/pictures DESTINATION share/${PROJECT_NAME}/demo
  FILES_MATCHING PATTERN *.bmp PATTERN *.gif PATTERN *.ico)

install(FILES strings/enu35000.rc DESTINATION share/${PROJECT_NAME})  # for translators
configure_file(shipped/TRELIN.CFG ${documents}/TRELIN.CFG @ONLY NEWLINE_STYLE DOS)
install(FILES ${documents}/TRELIN.CFG DESTINATION share/${PROJECT_NAME}/sample)

# The pages for a suite's maintainer; they link to nothing else.
foreach(page first-suite setup-list installation-records trelin-check trelin-status many-workstations string-libraries shipping
    demonstration continuous-integration security)
  install(FILES docs/${page}.md DESTINATION share/doc/${PROJECT_NAME})
endforeach()
install(DIRECTORY docs/pictures DESTINATION share/doc/${PROJECT_NAME})

install(FILES packaging/trelin-demo.desktop DESTINATION share/applications)
foreach(size 16 32 48 256)
  install(FILES packaging/icons/${size}.png
    DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME trelin.png)
endforeach()

# Manual pages and the changelog are compressed, with neither name nor time.
set(compressed "")
function(compress source target)
  add_custom_command(OUTPUT ${target}
    COMMAND sh -c "gzip -9nc \"$1\" >\"$2\"" sh ${source} ${target}
    DEPENDS ${source}
    VERBATIM)
  set(compressed ${compressed} ${target} PARENT_SCOPE)
endfunction()
foreach(page trelin trelin-check trelin-status trelin-demo)
  configure_file(packaging/man/${page}.1.in ${documents}/${page}.1 @ONLY)
  compress(${documents}/${page}.1 ${documents}/${page}.1.gz)
  install(FILES ${documents}/${page}.1.gz DESTINATION share/man/man1)
endforeach()
compress(${CMAKE_SOURCE_DIR}/CHANGELOG.md ${documents}/changelog.gz)
install(FILES ${documents}/changelog.gz packaging/copyright DESTINATION share/doc/${PROJECT_NAME})

add_custom_target(package_contents DEPENDS ${compressed})
add_dependencies(package_contents trelin trelin-check trelin-status string_library demo)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${PROJECT_NAME})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Trelin developers <trelin@example.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
# ./package has built what is needed; the tests are no part of it.
set(CPACK_CMAKE_GENERATOR Ninja)
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "setup launcher for software suites: preview and checker
Trelin is the setup launcher of a suite of measurement software for Windows
workstations. This package is for whoever puts such a suite together:
trelin shows the menu of a suite as its users will see it, trelin-check
finds the faults of its setup list and string libraries, trelin-status
tells what is installed of it on one workstation or on many, and
trelin-demo starts a demonstration suite.")
include(CPack)
