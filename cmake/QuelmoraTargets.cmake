# Instruments <target> for coverage when QUELMORA_COVERAGE names the top folder
# its sources live in (toolkit for toolkit/x11, resources, ...) or says "all".
function(quelmora_coverage target)
  file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  string(REGEX REPLACE "/.*" "" folder "${folder}")
  if("all" IN_LIST QUELMORA_COVERAGE OR folder IN_LIST QUELMORA_COVERAGE)
    target_compile_options(${target} PRIVATE --coverage -O0)
    # The compiler cache would hand out objects whose notes name another
    # folder, so that gcov finds no sources: instrumented code is compiled afresh.
    set_target_properties(${target} PROPERTIES CXX_COMPILER_LAUNCHER "")
  endif()
endfunction()

# One static library per source folder. Sources are collected from the folder
# itself, so that several people adding units at once don't collide in one list.
#
#   quelmora_library(<name> [DEPS <targets...>] [SYSTEM <libs...>])
#
# A folder that holds no .cpp yet becomes an INTERFACE library, so that its
# headers can be used and the dependants keep linking.
function(quelmora_library name)
  cmake_parse_arguments(ARG "" "" "DEPS;SYSTEM" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(sources)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${ARG_DEPS} ${ARG_SYSTEM})
    quelmora_coverage(${name})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} INTERFACE ${ARG_DEPS} ${ARG_SYSTEM})
  endif()
endfunction()

# One test executable per folder of tests/, labelled "unit".
#
#   quelmora_tests(<name> DEPS <targets...> [LABEL <label>])
function(quelmora_tests name)
  cmake_parse_arguments(ARG "" "LABEL" "DEPS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(NOT sources)
    return()
  endif()
  if(NOT ARG_LABEL)
    set(ARG_LABEL unit)
  endif()
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE ${ARG_DEPS} GTest::gtest GTest::gtest_main)
  target_compile_definitions(${name} PRIVATE
    QUELMORA_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    QUELMORA_BINARY_DIR="${PROJECT_BINARY_DIR}")
  gtest_discover_tests(${name}
    WORKING_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}
    PROPERTIES LABELS ${ARG_LABEL}
    DISCOVERY_TIMEOUT 60)
endfunction()
