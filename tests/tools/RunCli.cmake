# Runs rune-sdp and compares its exit status and its whole standard output and standard error
# with EXPECTED.out and EXPECTED.err (an absent file stands for no output). Standard output goes
# to the file CAPTURE, or to STDOUT when given (then it is not compared). PREFIX: the words of a
# command that runs the tool. With WRITTEN, the tool runs in the folder of WRITTEN, the file it
# writes, which is compared with WRITTEN_EXPECTED, or must not exist when that is empty; it starts
# as a copy of EXISTING when given, and nothing else may be left in its folder. With THEN, the tool runs a second time after
# the first run succeeded, and that run is the one compared.
# In ARGUMENTS and THEN, "|" separates arguments, \xHH stands for the byte HH and
# @repeat:N:TEXT@ for TEXT N times, so that an argument can hold what a command line cannot; but
# not ";", "[" or "]", which a CMake list would take apart.
# Files compare byte for byte: execute_process and file(READ) would drop carriage returns.
# With the environment variable RUNE_CLI_UPDATE set, the expected files are written from what the
# tool printed and wrote, instead of compared.
function(decode_arguments variable text)
  string(REPLACE "|" ";" encoded "${text}")
  set(decoded)
  foreach(argument IN LISTS encoded)
    while(argument MATCHES "@repeat:([0-9]+):([^@]*)@")
      string(REPEAT "${CMAKE_MATCH_2}" ${CMAKE_MATCH_1} repeated)
      string(REPLACE "${CMAKE_MATCH_0}" "${repeated}" argument "${argument}")
    endwhile()
    while(argument MATCHES "\\\\x([0-9A-F][0-9A-F])")
      math(EXPR code "0x${CMAKE_MATCH_1}")
      string(ASCII ${code} byte)
      string(REPLACE "${CMAKE_MATCH_0}" "${byte}" argument "${argument}")
    endwhile()
    list(APPEND decoded "${argument}")
  endforeach()
  set(${variable} "${decoded}" PARENT_SCOPE)
endfunction()

set(redirections)
if(INPUT)
  list(APPEND redirections INPUT_FILE ${INPUT})
endif()
if(STDOUT)
  list(APPEND redirections OUTPUT_FILE ${STDOUT})
else()
  list(APPEND redirections OUTPUT_FILE ${CAPTURE})
endif()
string(REPLACE "|" ";" prefix "${PREFIX}")
# A run that writes a file runs in the file's folder, which holds nothing else.
set(where)
if(WRITTEN)
  get_filename_component(written_dir ${WRITTEN} DIRECTORY)
  get_filename_component(written_name ${WRITTEN} NAME)
  file(REMOVE_RECURSE ${written_dir})
  file(MAKE_DIRECTORY ${written_dir})
  if(EXISTING)
    file(COPY_FILE ${EXISTING} ${WRITTEN})
  endif()
  set(where WORKING_DIRECTORY ${written_dir})
endif()
decode_arguments(arguments "${ARGUMENTS}")
execute_process(COMMAND ${prefix} ${EMULATOR} ${TOOL} ${arguments} ${redirections} ${where}
  RESULT_VARIABLE status ERROR_VARIABLE err)

set(failures)
if(THEN)
  if(NOT status STREQUAL 0)
    message(FATAL_ERROR "rune-sdp ${arguments}: exit status ${status}\n${err}")
  endif()
  decode_arguments(arguments "${THEN}")
  execute_process(COMMAND ${EMULATOR} ${TOOL} ${arguments} OUTPUT_FILE ${CAPTURE} ${where}
    RESULT_VARIABLE status ERROR_VARIABLE err)
endif()
if(NOT status STREQUAL EXPECTED_STATUS)
  string(APPEND failures "exit status ${status}, expected ${EXPECTED_STATUS}\n")
endif()

# Appends to failures unless the file actual holds what the file expected holds; a missing file
# holds nothing. Updating, expected becomes a copy of actual, or goes when actual is missing or
# empty.
function(compare_files what actual expected)
  if(DEFINED ENV{RUNE_CLI_UPDATE})
    file(REMOVE ${expected})
    if(EXISTS "${actual}")
      file(SIZE ${actual} size)
      if(size GREATER 0)
        file(COPY_FILE ${actual} ${expected})
      endif()
    endif()
    return()
  endif()
  foreach(side actual expected)
    set(${side}_hex "")
    set(${side}_text "")
    if(EXISTS "${${side}}")
      file(READ ${${side}} ${side}_hex HEX)
      file(READ ${${side}} ${side}_text)
    endif()
  endforeach()
  if(NOT actual_hex STREQUAL expected_hex)
    string(APPEND failures "${what}:\n[${actual_text}]\nexpected:\n[${expected_text}]\n"
      "in hex:\n${actual_hex}\nexpected:\n${expected_hex}\n")
    set(failures "${failures}" PARENT_SCOPE)
  endif()
endfunction()

if(THEN OR NOT STDOUT)
  compare_files(stdout ${CAPTURE} ${EXPECTED}.out)
endif()
file(WRITE ${CAPTURE}.err "${err}")
compare_files(stderr ${CAPTURE}.err ${EXPECTED}.err)
if(WRITTEN AND (WRITTEN_EXPECTED OR NOT DEFINED ENV{RUNE_CLI_UPDATE}))
  compare_files(${WRITTEN} ${WRITTEN} "${WRITTEN_EXPECTED}")
endif()
if(WRITTEN)
  file(GLOB left RELATIVE ${written_dir} ${written_dir}/*)
  list(REMOVE_ITEM left ${written_name})
  if(left)
    string(APPEND failures "left beside ${WRITTEN}: ${left}\n")
  endif()
endif()
if(failures)
  message(FATAL_ERROR "rune-sdp ${arguments}:\n${failures}")
endif()
