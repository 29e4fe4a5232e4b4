# browser_test: the suites of all mirrors, and what only a browser does, on the page in headless
# Chromium and Firefox. web/package.json names what drives them (npm ci in web/).
find_program(ESBUILD esbuild REQUIRED)
set(stage "${CMAKE_BINARY_DIR}/stage")
file(GLOB_RECURSE page_sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/web/*.ts"
  "${CMAKE_SOURCE_DIR}/web/*.css")
list(FILTER page_sources EXCLUDE REGEX "/node_modules/")
add_custom_command(OUTPUT "${stage}/stage.js"
  COMMAND "${ESBUILD}" "${CMAKE_SOURCE_DIR}/web/tests/stage_page.ts" --bundle --target=es2021
    --log-level=warning "--outfile=${stage}/stage.js"
  COMMAND "${CMAKE_COMMAND}" -E copy_if_different "${CMAKE_SOURCE_DIR}/web/style.css"
    "${CMAKE_SOURCE_DIR}/web/style_grid.css" "${CMAKE_SOURCE_DIR}/web/tests/stage.html" "${stage}"
  DEPENDS ${page_sources} "${CMAKE_SOURCE_DIR}/web/tests/stage.html" VERBATIM)
add_custom_target(browser_stage DEPENDS "${stage}/stage.js")
tolmer_test(browser LINKS tolmer_web tolmer_test_support
  ENVIRONMENT "TOLMER_STAGE_SITE=${stage}")
target_sources(browser_test PRIVATE ${mirror_suites})
target_compile_definitions(browser_test PRIVATE
  "TOLMER_BROWSER_DRIVER=\"${CMAKE_SOURCE_DIR}/web/tests/driver.mjs\"")
add_dependencies(browser_test browser_stage)
