# Writes LIST_FILE, in which ctest finds one test for each that PYTHON's pytest finds in FOLDER.
# PREFIX stands before their names. ENVIRONMENT holds their variables, separated by "|".
set(ENV{PYTHONDONTWRITEBYTECODE} 1)
execute_process(
  COMMAND "${PYTHON}" -m pytest --collect-only -q -p no:cacheprovider .
  WORKING_DIRECTORY "${FOLDER}"
  OUTPUT_VARIABLE output
  ERROR_VARIABLE output
  RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "pytest (Debian package python3-pytest) cannot collect the tests:\n${output}")
endif()

string(REPLACE "|" ";" ENVIRONMENT "${ENVIRONMENT}")
string(REGEX MATCHALL "[^\n]+\\.py::[^\n]+" ids "${output}")
set(script "")
foreach(id IN LISTS ids)
  string(REGEX REPLACE "^test_(.*)\\.py::test_(.*)$" "${PREFIX}e2e.\\1.\\2" name "${id}")
  string(APPEND script "\
add_test([==[${name}]==] [==[${PYTHON}]==] -m pytest -q -rs -p no:cacheprovider [==[${FOLDER}/${id}]==])
set_tests_properties([==[${name}]==] PROPERTIES TIMEOUT 120 ENVIRONMENT [==[${ENVIRONMENT}]==]
  SKIP_REGULAR_EXPRESSION [==[SKIPPED \\[]==])
")
endforeach()
file(WRITE "${LIST_FILE}" "${script}")
