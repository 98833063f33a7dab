# The native program as a Debian package, with its manual page and the files that it is shipped with.
install(TARGETS tidemark RUNTIME DESTINATION bin)
install(FILES ${PROJECT_SOURCE_DIR}/assets/Ignorelst.ini DESTINATION share/tidemark)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/assets/images DESTINATION share/tidemark
  FILES_MATCHING PATTERN "*.jpg")
# The distribution's programs look for it packed.
find_program(GZIP gzip REQUIRED)
set(manual ${CMAKE_BINARY_DIR}/tidemark.1.gz)
add_custom_command(OUTPUT ${manual} DEPENDS ${CMAKE_CURRENT_LIST_DIR}/tidemark.1
  COMMAND ${GZIP} -9nc ${CMAKE_CURRENT_LIST_DIR}/tidemark.1 > ${manual})
add_custom_target(manual DEPENDS ${manual})
add_dependencies(tidemark manual)
install(FILES ${manual} DESTINATION share/man/man1)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tidemark)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "registry cleaner for Windows PCs that are switched off")
set(CPACK_PACKAGE_CONTACT "Tidemark maintainers <maintainers@localhost>")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
  "Tidemark finds entries in the registry of a Windows PC that point at\nthings that no longer exist, and repairs what is left ticked, with undo.\nIt works on the mounted disk of a PC that is switched off.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
