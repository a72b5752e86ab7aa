# Whether the library and Xerces-C are linked into the tool. The libraries that Xerces-C loads take most of the time in which
# the tool starts: docs/performance.md.
option(XMLCONFIG_STATIC_TOOL "Link the library and Xerces-C into the tool where that is possible, so that it starts faster" ON)

set(XMLCONFIG_XERCES_CAN_BE_LINKED_IN OFF)
if(XMLCONFIG_STATIC_TOOL AND UNIX AND NOT APPLE)
  get_filename_component(XMLCONFIG_XERCES_FOLDER "${XercesC_LIBRARY_RELEASE}" DIRECTORY)
  find_library(XMLCONFIG_XERCES_ARCHIVE libxerces-c.a HINTS "${XMLCONFIG_XERCES_FOLDER}")
  find_library(XMLCONFIG_ICU icuuc)
  if(XMLCONFIG_XERCES_ARCHIVE AND XMLCONFIG_ICU)
    try_compile(XMLCONFIG_XERCES_LINKS ${CMAKE_CURRENT_BINARY_DIR}/static
                SOURCES ${CMAKE_CURRENT_LIST_DIR}/XercesProbe.cpp ${PROJECT_SOURCE_DIR}/tools/static/NoNetwork.cpp
                CMAKE_FLAGS "-DINCLUDE_DIRECTORIES=${XercesC_INCLUDE_DIRS}"
                LINK_LIBRARIES ${XMLCONFIG_XERCES_ARCHIVE} ${XMLCONFIG_ICU})
    set(XMLCONFIG_XERCES_CAN_BE_LINKED_IN ${XMLCONFIG_XERCES_LINKS})
  endif()
endif()
if(XMLCONFIG_XERCES_CAN_BE_LINKED_IN)
  message(STATUS "Linking Xerces-C into the tool: ${XMLCONFIG_XERCES_ARCHIVE}")
endif()
