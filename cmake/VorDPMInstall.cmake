# Install rules and the CMake package (find_package(VorDPM)) for hosts that use the editor.
include(CMakePackageConfigHelpers)

# Libraries carry the project version; their SONAME changes with the major version.
set_target_properties(VorDPM PROPERTIES VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR} EXPORT_NAME Store INSTALL_RPATH "$ORIGIN")
set_target_properties(VorDPMEditor PROPERTIES VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR} EXPORT_NAME Editor INSTALL_RPATH "$ORIGIN")
set_target_properties(vordpm vordpm-host PROPERTIES INSTALL_RPATH "${VORDPM_PROGRAM_RPATH}")

# The package's names, also inside this build tree.
add_library(VorDPM::Store ALIAS VorDPM)
add_library(VorDPM::Editor ALIAS VorDPMEditor)

# The headers keep the source tree's layout: the store's flat, the editor's under query/ and
# shell/ (which the editor's headers name in their includes).
target_include_directories(VorDPM INTERFACE $<INSTALL_INTERFACE:${VORDPM_INCLUDE_DIR}>)
# A host includes the entry point's header by its name alone, built or installed.
target_include_directories(VorDPMEditor INTERFACE $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/shell>
  $<INSTALL_INTERFACE:${VORDPM_INCLUDE_DIR}> $<INSTALL_INTERFACE:${VORDPM_INCLUDE_DIR}/shell>)

# The store library installs from its own folder (store/CMakeLists.txt), where the names of its
# public headers are relative to.
install(TARGETS VorDPMEditor EXPORT VorDPMTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime NAMELINK_COMPONENT Development)
install(TARGETS vordpm vordpm-host RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime)
install(TARGETS vordpm-preview RUNTIME DESTINATION ${VORDPM_PREVIEW_PROGRAM_DIR} COMPONENT Runtime)

# The entry function with the editor's settings a host may write beforehand, the query class,
# the naming rule and the two exported controls, with what they include.
install(FILES query/CVorDPMData.h query/CVorDPMNameRule.h query/VorDPMEditorExport.h
  DESTINATION ${VORDPM_INCLUDE_DIR}/query COMPONENT Development)
install(FILES shell/ExportVorDPMEditor.h shell/CVorDPMEditorSettings.h
  shell/CVorDPMTreeCtrlEx.h shell/CVorDPMReportCtrlBase.h
  shell/CVorDPMReportModel.h shell/CVorDPMReportRecord.h
  DESTINATION ${VORDPM_INCLUDE_DIR}/shell COMPONENT Development)

set(VORDPM_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/VorDPM)
install(EXPORT VorDPMTargets NAMESPACE VorDPM:: DESTINATION ${VORDPM_CMAKE_DIR}
  COMPONENT Development)
configure_package_config_file(cmake/VorDPMConfig.cmake.in
  ${PROJECT_BINARY_DIR}/VorDPMConfig.cmake INSTALL_DESTINATION ${VORDPM_CMAKE_DIR})
# Before 1.0 a minor release may change the interface; after it only a major one does.
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(vordpm_compatibility SameMinorVersion)
else()
  set(vordpm_compatibility SameMajorVersion)
endif()
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VorDPMConfigVersion.cmake
  COMPATIBILITY ${vordpm_compatibility})
install(FILES ${PROJECT_BINARY_DIR}/VorDPMConfig.cmake
  ${PROJECT_BINARY_DIR}/VorDPMConfigVersion.cmake
  DESTINATION ${VORDPM_CMAKE_DIR} COMPONENT Development)

# Installs into /usr (the Debian package) rely on the system's loader, which finds the libraries
# there; a search path of their own would override local policy.
install(CODE "
  if(CMAKE_INSTALL_PREFIX MATCHES \"^/usr/?$\")
    foreach(file IN ITEMS ${CMAKE_INSTALL_BINDIR}/$<TARGET_FILE_NAME:vordpm>
        ${CMAKE_INSTALL_BINDIR}/$<TARGET_FILE_NAME:vordpm-host>
        ${CMAKE_INSTALL_LIBDIR}/$<TARGET_FILE_NAME:VorDPM>
        ${CMAKE_INSTALL_LIBDIR}/$<TARGET_FILE_NAME:VorDPMEditor>)
      file(RPATH_REMOVE FILE \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/\${file}\")
    endforeach()
  endif()" COMPONENT Runtime)
