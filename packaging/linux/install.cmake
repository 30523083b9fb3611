# For a Linux desktop, besides the programs: menu entry, description, icons, manual pages, completions.
find_program(GZIP_PROGRAM gzip REQUIRED)

# The day of the newest release, from the changelog's first heading of the form "## [1.0.0] - 2026-11-21".
file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md releases REGEX "^## \\[[0-9.]+\\] - ")
list(GET releases 0 newest_release)
if(NOT newest_release MATCHES "^## \\[([0-9.]+)\\] - ([0-9-]+)$" OR NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "The newest release in CHANGELOG.md is not ${PROJECT_VERSION}: ${newest_release}")
endif()
set(QUARLIN_RELEASE_DATE ${CMAKE_MATCH_2})
set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS CHANGELOG.md)

# quarlin_compressed(OUTPUT INPUT): compresses INPUT with gzip to OUTPUT, with the same bytes every time.
function(quarlin_compressed output input)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${GZIP_PROGRAM} --best --no-name --stdout ${input} > ${output}
    DEPENDS ${input}
    VERBATIM)
endfunction()

# Versions of AppStream before 1.0 know one form of the developer's name, later ones call it deprecated.
set(QUARLIN_DEVELOPER_TAG "<developer id=\"tech.vorek\"><name>${CPACK_PACKAGE_VENDOR}</name></developer>")
find_program(APPSTREAMCLI appstreamcli)
if(APPSTREAMCLI)
  execute_process(COMMAND ${APPSTREAMCLI} --version OUTPUT_VARIABLE version COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCH "[0-9.]+" version "${version}")
  if(version VERSION_LESS 1.0)
    set(QUARLIN_DEVELOPER_TAG "<developer_name>${CPACK_PACKAGE_VENDOR}</developer_name>")
  endif()
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/quarlin.metainfo.xml.in tech.vorek.quarlin.metainfo.xml @ONLY)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/quarlin.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tech.vorek.quarlin.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

install(DIRECTORY ${QUARLIN_ICON_THEME} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)
install(FILES ${QUARLIN_ICON_SVG} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

# A manual page may contain @PROJECT_VERSION@ and @QUARLIN_RELEASE_DATE@.
set(compressed)
file(GLOB pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/packaging/man/*.1)
foreach(page IN LISTS pages)
  get_filename_component(name ${page} NAME)
  configure_file(${page} man/${name} @ONLY)
  quarlin_compressed(man/${name}.gz ${CMAKE_CURRENT_BINARY_DIR}/man/${name})
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/man/${name}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  list(APPEND compressed man/${name}.gz)
endforeach()

# quarlin_completions(SHELL FOLDER): installs the files of packaging/completion/SHELL to FOLDER, where that shell finds them.
function(quarlin_completions shell folder)
  file(GLOB completions CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/packaging/completion/${shell}/*)
  install(FILES ${completions} DESTINATION ${CMAKE_INSTALL_DATADIR}/${folder})
endfunction()
quarlin_completions(bash bash-completion/completions)
quarlin_completions(fish fish/vendor_completions.d)
quarlin_completions(zsh zsh/vendor-completions)

quarlin_compressed(changelog.gz ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
list(APPEND compressed changelog.gz)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/quarlin)
add_custom_target(compressed_documents ALL DEPENDS ${compressed})
add_dependencies(packed icons compressed_documents)
