# Runs rune-sdp once and compares its exit status and its whole standard output and standard
# error with EXPECTED.out and EXPECTED.err (an absent file stands for no output). Standard output
# goes to the file CAPTURE, or to STDOUT when given (then it is not compared). With WRITTEN, the
# file the tool writes is compared with WRITTEN_EXPECTED, or must not exist when that is empty.
# Files compare byte for byte: execute_process and file(READ) would drop carriage returns.
string(REPLACE "|" ";" arguments "${ARGUMENTS}")
set(redirections)
if(INPUT)
  list(APPEND redirections INPUT_FILE ${INPUT})
endif()
if(STDOUT)
  list(APPEND redirections OUTPUT_FILE ${STDOUT})
else()
  list(APPEND redirections OUTPUT_FILE ${CAPTURE})
endif()
if(WRITTEN)
  file(REMOVE ${WRITTEN})
endif()
execute_process(COMMAND ${EMULATOR} ${TOOL} ${arguments} ${redirections}
  RESULT_VARIABLE status ERROR_VARIABLE err)

set(failures)
if(NOT status STREQUAL EXPECTED_STATUS)
  string(APPEND failures "exit status ${status}, expected ${EXPECTED_STATUS}\n")
endif()

# Appends to failures unless the file actual holds what the file expected holds; a missing file
# holds nothing.
function(compare_files what actual expected)
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

if(NOT STDOUT)
  compare_files(stdout ${CAPTURE} ${EXPECTED}.out)
endif()
set(expected "")
if(EXISTS ${EXPECTED}.err)
  file(READ ${EXPECTED}.err expected)
endif()
if(NOT err STREQUAL expected)
  string(APPEND failures "stderr:\n[${err}]\nexpected:\n[${expected}]\n")
endif()
if(WRITTEN)
  compare_files(${WRITTEN} ${WRITTEN} "${WRITTEN_EXPECTED}")
endif()
if(failures)
  message(FATAL_ERROR "rune-sdp ${arguments}:\n${failures}")
endif()
