# The day on which CHANGELOG.md says this version was released, as TOLMER_RELEASE_DATE and in seconds
# since 1970: documents and packages bear it, so that every build makes the same.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/CHANGELOG.md")
string(REPLACE "." "\\." version_pattern "${PROJECT_VERSION}")
file(STRINGS "${CMAKE_SOURCE_DIR}/CHANGELOG.md" heading LIMIT_COUNT 1
  REGEX "^## ${version_pattern} \\([0-9]+-[0-9]+-[0-9]+\\)$")
if(NOT heading)
  message(FATAL_ERROR "CHANGELOG.md has no heading \"## ${PROJECT_VERSION} (YEAR-MONTH-DAY)\".")
endif()
string(REGEX REPLACE ".*\\((.*)\\)" "\\1" TOLMER_RELEASE_DATE "${heading}")
execute_process(COMMAND date --utc --date "${TOLMER_RELEASE_DATE}" +%s
  OUTPUT_VARIABLE TOLMER_RELEASE_SECONDS OUTPUT_STRIP_TRAILING_WHITESPACE
  COMMAND_ERROR_IS_FATAL ANY)
