# One helper for every test executable: GoogleTest discovery, labels and
# the environment the tests expect.
#   ztolvan_add_test(NAME <target> SOURCES ... LIBS ... [LABELS pg gui])
function(ztolvan_add_test)
  cmake_parse_arguments(ZT "" "NAME" "SOURCES;LIBS;LABELS" ${ARGN})
  add_executable(${ZT_NAME} ${ZT_SOURCES})
  target_link_libraries(${ZT_NAME} PRIVATE ${ZT_LIBS} GTest::gtest GTest::gmock GTest::gtest_main)
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
