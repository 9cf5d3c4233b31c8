# What an installation holds, in three components that become three Debian packages:
#   library (libodbcimport0)     the module, the workbook library, the message library
#   dev     (libodbcimport-dev)  headers, CMake package, pkg-config file
#   program (wbimport)           the command-line host, its man page, completions and JSON schemas, the simulator
include(CMakePackageConfigHelpers)

set(WB_PRIVATE_LIBDIR ${CMAKE_INSTALL_LIBDIR}/odbcimport)

install(TARGETS workbook odbcimport EXPORT odbcimportTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT dev
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/odbcimport)
install(TARGETS msgtext LIBRARY DESTINATION ${WB_PRIVATE_LIBDIR} COMPONENT library)
install(TARGETS wbimport RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
install(TARGETS catalogsim LIBRARY DESTINATION ${WB_PRIVATE_LIBDIR} COMPONENT program)
set(WB_DOCUMENTS ${CMAKE_CURRENT_BINARY_DIR}/host/documents)
install(FILES ${WB_DOCUMENTS}/wbimport.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
install(FILES ${WB_DOCUMENTS}/wbimport.bash
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME wbimport COMPONENT program)
install(FILES ${WB_DOCUMENTS}/wbimport.zsh
  DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions RENAME _wbimport COMPONENT program)
install(FILES ${WB_DOCUMENTS}/wbimport.fish
  DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT program)
install(FILES docs/schemas/request.schema.json docs/schemas/workbook.schema.json docs/schemas/diff.schema.json
              docs/schemas/lint.schema.json
  DESTINATION ${CMAKE_INSTALL_DATADIR}/odbcimport/schemas COMPONENT program)
foreach(component library dev program)
  if(component STREQUAL "library")
    set(package libodbcimport${PROJECT_VERSION_MAJOR})
  elseif(component STREQUAL "dev")
    set(package libodbcimport-dev)
  else()
    set(package wbimport)
  endif()
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
    RENAME copyright COMPONENT ${component})
endforeach()

# The public headers. Everything else is the module's own.
set(WB_PUBLIC_HEADERS
  catalogues/type_lists.h
  importer/dialects.h
  importer/name_check.h
  importer/odbc_workbook_import.h
  importer/workbook/datatype.h
  importer/workbook/details.h
  importer/workbook/enums.h
  importer/workbook/export.h
  importer/workbook/functions.h
  importer/workbook/import.h
  importer/workbook/info.h
  importer/workbook/name.h
  importer/workbook/object.h
  importer/workbook/pool.h
  importer/workbook/table.h
  importer/workbook/type_text.h
  importer/workbook/text.h
  importer/workbook/utf8.h
  importer/workbook/workbook.h
  importer/workbook/workbook_file.h
  odbc/connection_check.h
  odbc/fetch.h
  odbc/ptr_list.h
  odbc/record_list.h
  platform/driver_call.h
  platform/platform.h)
foreach(header ${WB_PUBLIC_HEADERS})
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/odbcimport/${folder} COMPONENT dev)
endforeach()

set(WB_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/odbcimport)
install(EXPORT odbcimportTargets NAMESPACE odbcimport:: DESTINATION ${WB_CMAKEDIR} COMPONENT dev)
configure_package_config_file(cmake/odbcimportConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/odbcimportConfig.cmake INSTALL_DESTINATION ${WB_CMAKEDIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/odbcimportConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/odbcimportConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/odbcimportConfigVersion.cmake
  DESTINATION ${WB_CMAKEDIR} COMPONENT dev)
# The prefix is found from the file's own place, so that a moved installation stays right.
file(RELATIVE_PATH WB_PREFIX_FROM_PC
  /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/odbcimport.pc.in ${CMAKE_CURRENT_BINARY_DIR}/odbcimport.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/odbcimport.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME odbcimport)
set(CPACK_PACKAGE_VENDOR "odbcimport maintainers")
set(CPACK_PACKAGE_CONTACT "odbcimport maintainers <maintainers@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL library dev program)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/lib)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libodbcimport${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "database schema importer through ODBC - module
 Reads a database's catalog through ODBC into an in-memory schema model.")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libodbcimport-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_DESCRIPTION "database schema importer through ODBC - development files
 Headers, CMake package and pkg-config file for hosts that embed the module.")
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS
  "libodbcimport${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}), unixodbc-dev")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME wbimport)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION database)
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION "database schema importer through ODBC - command line
 Imports a schema through any ODBC driver and writes it as text, JSON, SQL, diagram or web page.")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "libodbcimport${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS "libsqliteodbc")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SUGGESTS "odbc-postgresql, odbc-mariadb, odbc-mdbtools")
include(CPack)
