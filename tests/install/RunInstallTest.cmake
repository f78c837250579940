# Installs the build into a fresh prefix, then builds and runs a client against it twice: through
# find_package(RuneCommon) and through pkg-config. The installed rune-sdp runs from the prefix, and
# tells the version that the packages and the libraries carry.
set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGN} failed (${status}):\n${out}")
  endif()
  set(output "${out}" PARENT_SCOPE)
endfunction()

function(expect_client_output program)
  run(${program})
  if(NOT output STREQUAL "W/CLIENT 1; Success m=audio 49152 RTP/AVP 97\n")
    message(FATAL_ERROR "unexpected output of ${program}:\n${output}")
  endif()
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

run(${CMAKE_COMMAND} -S ${CLIENT_DIR} -B ${WORK_DIR}/cmake-client -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_CXX_COMPILER=${CXX})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/cmake-client)
expect_client_output(${WORK_DIR}/cmake-client/client)

file(GLOB_RECURSE pc_file ${prefix}/*/runecommon.pc)
get_filename_component(pc_dir "${pc_file}" DIRECTORY)
set(ENV{PKG_CONFIG_PATH} ${pc_dir})
run(pkg-config --cflags --libs runesdp)
separate_arguments(flags UNIX_COMMAND "${output}")
file(MAKE_DIRECTORY ${WORK_DIR}/pkg-config-client)
# pkg-config leaves the run path of the library to the client.
run(${CXX} -std=c++17 ${CLIENT_DIR}/client.cpp -o ${WORK_DIR}/pkg-config-client/client ${flags}
    -Wl,-rpath,${pc_dir}/..)
expect_client_output(${WORK_DIR}/pkg-config-client/client)

run(${prefix}/bin/rune-sdp describe ${SAMPLE})
if(NOT output MATCHES "\nSuccess\n$")
  message(FATAL_ERROR "unexpected output of the installed rune-sdp:\n${output}")
endif()

# One version: the tool's, the packages' and the one in the libraries' file names.
run(${prefix}/bin/rune-sdp --version)
string(REGEX REPLACE "^rune-sdp ([0-9.]+)\n$" "\\1" version "${output}")
foreach(module runecommon runesdp)
  run(pkg-config --modversion ${module})
  file(GLOB_RECURSE library ${prefix}/lib${module}.so.${version})
  if(NOT output STREQUAL "${version}\n" OR NOT library)
    message(FATAL_ERROR "${module} does not carry version ${version} of rune-sdp --version")
  endif()
endforeach()
