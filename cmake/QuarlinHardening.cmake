# The hardening that Debian asks of a package, added to quarlin_flags: checked memory functions, guarded stack frames, and
# addresses that are resolved at the start and then protected. Programs that run anywhere in memory (PIE) are the compiler's
# default there. The level of optimization stays that of the build type. The flags are those of the release's own compiler, g++.
find_program(DPKG_BUILDFLAGS dpkg-buildflags)
if(DPKG_BUILDFLAGS)
  foreach(kind CPPFLAGS CXXFLAGS LDFLAGS)
    execute_process(
      COMMAND ${CMAKE_COMMAND} -E env DEB_BUILD_MAINT_OPTIONS=hardening=+all ${DPKG_BUILDFLAGS} --get ${kind}
      OUTPUT_VARIABLE flags
      OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(flags UNIX_COMMAND "${flags}")
    list(FILTER flags EXCLUDE REGEX "^(-g|-O.|-f.*-prefix-map=.*)$")
    if(kind STREQUAL "LDFLAGS")
      target_link_options(quarlin_flags INTERFACE ${flags})
    else()
      # The checked functions need optimization.
      target_compile_options(quarlin_flags INTERFACE "$<$<NOT:$<CONFIG:Debug>>:${flags}>")
    endif()
  endforeach()
endif()
