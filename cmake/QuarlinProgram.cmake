# quarlin_describe_program(TARGET): adds the icon, name and version of a program with a window, as macOS and Windows expect
# them. On Linux they are separate files, see packaging/CMakeLists.txt.
function(quarlin_describe_program target)
  if(APPLE)
    target_sources(${target} PRIVATE ${QUARLIN_ICON_ICNS})
    set_source_files_properties(${QUARLIN_ICON_ICNS} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
    set_target_properties(
      ${target}
      PROPERTIES MACOSX_BUNDLE_INFO_PLIST ${PROJECT_SOURCE_DIR}/packaging/macos/Info.plist.in
                 MACOSX_BUNDLE_BUNDLE_VERSION ${PROJECT_VERSION}
                 MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION})
  elseif(WIN32)
    set(description ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
    configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/quarlin.rc.in ${description} @ONLY)
    set_source_files_properties(${description} PROPERTIES OBJECT_DEPENDS ${QUARLIN_ICON_ICO})
    target_sources(${target} PRIVATE ${description})
  endif()
endfunction()
