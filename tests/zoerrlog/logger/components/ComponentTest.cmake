# zoerrlog_add_component_test(<name> SETS <set>... SOURCES <file>... [LIBRARIES <target>...]
#   [LABELS <label>...])
# As zoerrlog_add_test, with the component libraries of a set installed; with several sets every
# case runs with each.
function(zoerrlog_add_component_test name)
  cmake_parse_arguments(arg "" "" "SETS;SOURCES;LIBRARIES;LABELS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE
    zoerrlog_build_options ${arg_LIBRARIES} GTest::gmock GTest::gtest_main)
  foreach(set IN LISTS arg_SETS)
    add_dependencies(${name} test_components_${set})
    gtest_discover_tests(${name}
      TEST_PREFIX "${name}.${set}."
      DISCOVERY_MODE PRE_TEST
      DISCOVERY_TIMEOUT 60
      PROPERTIES
        TIMEOUT 300
        ENVIRONMENT "LD_LIBRARY_PATH=${PROJECT_BINARY_DIR}/lib/test_components/${set}"
        LABELS "${arg_LABELS}")
  endforeach()
endfunction()
