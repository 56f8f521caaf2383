# Warnings are on for the project's own targets, never for a consumer's. They stop the build only for the
# project's developers (scripts/test and CI turn MIREL_WARNINGS_AS_ERRORS on): a packager building a release
# with a newer compiler must not fail on a warning that compiler has just learned.
option(MIREL_WARNINGS_AS_ERRORS "Treat the project's compiler warnings as errors" OFF)

function(mirel_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra $<$<BOOL:${MIREL_WARNINGS_AS_ERRORS}>:-Werror>)
endfunction()
