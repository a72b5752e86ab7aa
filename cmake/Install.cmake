include(CMakePackageConfigHelpers)
include(${CMAKE_CURRENT_LIST_DIR}/PublicHeaders.cmake)

foreach(header IN LISTS XMLCONFIG_PUBLIC_HEADERS)
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/XMLConfig/${folder})
endforeach()

install(TARGETS XMLConfig EXPORT XMLConfigTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

set(XMLCONFIG_PACKAGE_FOLDER ${CMAKE_INSTALL_LIBDIR}/cmake/XMLConfig)
install(EXPORT XMLConfigTargets NAMESPACE XMLConfig:: DESTINATION ${XMLCONFIG_PACKAGE_FOLDER})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/XMLConfigConfig.cmake.in XMLConfigConfig.cmake
                              INSTALL_DESTINATION ${XMLCONFIG_PACKAGE_FOLDER}
                              NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(XMLConfigConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/XMLConfigConfig.cmake ${PROJECT_BINARY_DIR}/XMLConfigConfigVersion.cmake
        DESTINATION ${XMLCONFIG_PACKAGE_FOLDER})

# The prefix is found from the place of the .pc file, so that an installed tree may be moved; a library folder that was
# given as an absolute path stays where it is, and so does all that is said from there.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(XMLCONFIG_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
else()
  file(RELATIVE_PATH prefixFromFile "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
  set(XMLCONFIG_PC_PREFIX "\${pcfiledir}/${prefixFromFile}")
endif()
foreach(folder LIBDIR INCLUDEDIR)
  if(IS_ABSOLUTE "${CMAKE_INSTALL_${folder}}")
    set(XMLCONFIG_PC_${folder} "${CMAKE_INSTALL_${folder}}")
  else()
    set(XMLCONFIG_PC_${folder} "\${prefix}/${CMAKE_INSTALL_${folder}}")
  endif()
endforeach()
if(NOT BUILD_SHARED_LIBS)
  set(XMLCONFIG_PC_REQUIRES "Requires: xerces-c, liblog4cxx\n")
  set(XMLCONFIG_PC_DEFINITIONS " -DXMLCONFIG_STATIC")
endif()
if(BUILD_SHARED_LIBS OR NOT WIN32)  # log4cxx tells pkg-config nothing there
  configure_file(${CMAKE_CURRENT_LIST_DIR}/XMLConfig.pc.in XMLConfig.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/XMLConfig.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endif()
