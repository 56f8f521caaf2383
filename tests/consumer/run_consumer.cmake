# Builds and runs a consumer program against an installed package, once through the CMake package and once
# through pkg-config. Given PREFIX, it uses that installation; given BUILD_DIR instead, it first installs that
# build into a scratch prefix. The compiler is the one the environment's CXX names, as for any consumer.
file(REMOVE_RECURSE ${WORK_DIR})

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "failed (${result}): ${ARGN}")
  endif()
endfunction()

if(NOT PREFIX)
  set(PREFIX ${WORK_DIR}/prefix)
  run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${PREFIX})
endif()
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/consumer -B ${WORK_DIR}/build -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${PREFIX})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run(${WORK_DIR}/build/consumer)

find_program(PKG_CONFIG pkg-config REQUIRED)
if(DEFINED ENV{CXX})
  set(CXX $ENV{CXX})
else()
  find_program(CXX NAMES c++ g++ REQUIRED)
endif()
file(GLOB pcdir LIST_DIRECTORIES true ${PREFIX}/lib*/pkgconfig)
set(ENV{PKG_CONFIG_PATH} "${pcdir}")
execute_process(COMMAND ${PKG_CONFIG} --cflags --libs mirelfrw7 OUTPUT_VARIABLE flags RESULT_VARIABLE result
                OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "pkg-config does not know mirelfrw7")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
run(${CXX} -std=c++20 ${SOURCE_DIR}/tests/consumer/main.cpp ${flags} -o ${WORK_DIR}/consumer_pc)
execute_process(COMMAND ${CMAKE_COMMAND} -E env "LD_LIBRARY_PATH=${pcdir}/.." ${WORK_DIR}/consumer_pc
                RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "the pkg-config consumer failed")
endif()
