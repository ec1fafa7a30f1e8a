# One helper for every test executable: GoogleTest discovery, labels and
# the environment the tests expect.
#   ztolvan_add_test(NAME <target> SOURCES ... LIBS ... [LABELS pg gui])
function(ztolvan_add_test)
  cmake_parse_arguments(ZT "" "NAME" "SOURCES;LIBS;LABELS" ${ARGN})
  add_executable(${ZT_NAME} ${ZT_SOURCES})
  target_link_libraries(${ZT_NAME} PRIVATE ${ZT_LIBS} ztolvan_main_loja GTest::gtest GTest::gmock)
  target_include_directories(${ZT_NAME} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  # One variable only: test discovery drops every entry of a list after the
  # first. The gui tests choose the offscreen platform themselves.
  set(env "ZTOLVAN_TEST=1")
  set(labels "${ZT_LABELS}")
  if(NOT labels)
    set(labels "core")
  endif()
  gtest_discover_tests(${ZT_NAME}
    DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS "${labels}" ENVIRONMENT "${env}")
endfunction()

# A check in real windows on a private X server: xvfb-run starts one for the
# run, so it needs no display of its own (CI has none); xdotool types as an
# operator would.
#   ztolvan_add_window_test(<test name> <executable target>)
function(ztolvan_add_window_test NAME TARGET)
  find_program(XVFB_RUN xvfb-run)
  find_program(XDOTOOL xdotool)
  if(NOT XVFB_RUN OR NOT XDOTOOL)
    message(WARNING "xvfb-run or xdotool missing: ${NAME} is not registered")
    return()
  endif()
  add_test(NAME ${NAME} COMMAND ${XVFB_RUN} -a -s "-screen 0 1280x1024x24" $<TARGET_FILE:${TARGET}>)
  set_tests_properties(${NAME} PROPERTIES
    LABELS gui TIMEOUT 180 ENVIRONMENT "ZTOLVAN_TEST=1;QT_QPA_PLATFORM=xcb;NO_AT_BRIDGE=1")
endfunction()
