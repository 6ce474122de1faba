# Installs this build into a scratch prefix, then configures, builds and runs
# examples/embed against it through find_package(Krolle): proof that a host can
# embed the installed library. Run by ctest as `cmake -P`.
foreach(var BUILD_DIR SOURCE_DIR WORK_DIR)
  if(NOT DEFINED ${var})
    message(FATAL_ERROR "TestEmbed: ${var} is not set")
  endif()
endforeach()

file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)

function(run_step what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "TestEmbed: ${what} failed (${rc})\n${out}\n${err}")
  endif()
  set(step_output "${out}" PARENT_SCOPE)
endfunction()

run_step("install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
run_step("configure" ${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples/embed -B ${WORK_DIR}/build -G Ninja
         -DCMAKE_PREFIX_PATH=${prefix})
run_step("build" ${CMAKE_COMMAND} --build ${WORK_DIR}/build)
set(ENV{LD_LIBRARY_PATH} "${prefix}/lib:$ENV{LD_LIBRARY_PATH}")
run_step("run" ${WORK_DIR}/build/embed_example)
if(NOT step_output MATCHES "frame +1: shot")
  message(FATAL_ERROR "TestEmbed: unexpected output\n${step_output}")
endif()
message(STATUS "${step_output}")

# The installed tool runs from wherever the prefix is moved, with no library path
# set: it finds the installed libraries through its run path. Its manual page is installed too.
if(NOT EXISTS ${prefix}/${CMAKE_INSTALL_MANDIR}/man1/krolle.1 AND NOT EXISTS ${prefix}/share/man/man1/krolle.1)
  message(FATAL_ERROR "TestEmbed: the manual page krolle.1 was not installed")
endif()
set(moved ${WORK_DIR}/moved-prefix)
file(RENAME ${prefix} ${moved})
unset(ENV{LD_LIBRARY_PATH})
run_step("installed tool" ${moved}/bin/krolle demo)
if(NOT step_output MATCHES "sample storyboard: 3 acts, 5 sequences, 12 shots")
  message(FATAL_ERROR "TestEmbed: unexpected output of the installed tool\n${step_output}")
endif()
run_step("installed tool's version" ${moved}/bin/krolle --version)
message(STATUS "installed tool: ${step_output}")
