# Only for the Debian package: its own changelog and copyright file, and the packages that it needs.
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "VOREK TECH <quarlin@vorek.invalid>")
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
# dependencies.cmake finds the libraries when the package is made.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS OFF)
find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
configure_file(${CMAKE_CURRENT_LIST_DIR}/dependencies.cmake.in dependencies.cmake.configured @ONLY)
file(
  GENERATE
  OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/dependencies.cmake
  INPUT ${CMAKE_CURRENT_BINARY_DIR}/dependencies.cmake.configured)
# Names and divisions of packages differ from release to release, so they are looked up by their files.
find_program(DPKG_QUERY dpkg-query NO_CACHE)

# quarlin_package_of(OUTPUT FILE): the package that a file belongs to; empty if there is none.
function(quarlin_package_of output file)
  set(package)
  if(DPKG_QUERY)
    file(REAL_PATH ${file} file)
    execute_process(COMMAND ${DPKG_QUERY} --search ${file} OUTPUT_VARIABLE package ERROR_QUIET)
    string(REGEX REPLACE ":.*" "" package "${package}")
  endif()
  set(${output} "${package}" PARENT_SCOPE)
endfunction()

# The programs load libvips and libheif when a file needs them, so they are not among the dependencies found in them.
set(loaded_packages)
foreach(library VIPS HEIF)
  list(GET ${library}_LINK_LIBRARIES 0 file)
  quarlin_package_of(package ${file})
  if(package)
    list(APPEND loaded_packages "${package} (>= ${${library}_VERSION})")
  endif()
endforeach()
# Newer releases pack the decoders of libheif one by one; a file without its decoder can't be read.
list(GET HEIF_LINK_LIBRARIES 0 file)
get_filename_component(folder ${file} DIRECTORY)
foreach(decoder libde265 dav1d)
  quarlin_package_of(package ${folder}/libheif/plugins/libheif-${decoder}.so)
  list(APPEND loaded_packages ${package})
endforeach()
list(JOIN loaded_packages ", " CPACK_DEBIAN_PACKAGE_DEPENDS)

# What the 3D view imports while it runs.
set(imported_packages)
foreach(module QtQuick3D QtQuick QtQml QtQml/WorkerScript)
  quarlin_package_of(package ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_QML}/${module}/qmldir)
  list(APPEND imported_packages ${package})
endforeach()
list(REMOVE_DUPLICATES imported_packages)
# And Qt's plugin for Wayland sessions.
list(JOIN imported_packages ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS)
string(APPEND CPACK_DEBIAN_PACKAGE_RECOMMENDS ", qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# The file dialogs, colors and font of GTK desktops.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS qt6-gtk-platformtheme)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Quarlin packs texture files into a material set: base color, a packed
occlusion, roughness and metallic map, a normal map, a glTF material and
notes. From a single texture it makes a normal map, the other maps of a
material and a packed map.
.
The package contains quarlin, a program with a window, and quarlin-cli, the
same tools for the command line.")

# Debian's rules require a changelog of the package besides that of the program.
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/changelog entry LIMIT_COUNT 1)
set(debian_version ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
if(NOT entry MATCHES "^quarlin \\(${debian_version}\\) ")
  message(FATAL_ERROR "The newest entry of packaging/debian/changelog is not ${debian_version}: ${entry}")
endif()
quarlin_compressed(changelog.Debian.gz ${CMAKE_CURRENT_LIST_DIR}/changelog)
add_custom_target(debian_changelog ALL DEPENDS changelog.Debian.gz)
add_dependencies(packed debian_changelog)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz ${CMAKE_CURRENT_LIST_DIR}/copyright
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/quarlin)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/lintian-overrides
        DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
        RENAME quarlin)
