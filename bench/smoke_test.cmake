# Runs qtzq-bench on a tiny generated photo for a moment and turns its JSON
# into a report: checks that the program and the report script work,
# without timing anything.
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
set(ENV{QTZQ_BENCH_SIZE} 48x32)
set(ENV{QTZQ_BENCH_PHOTO} ${WORK_DIR}/no-photo.png)  # falls back to the test scene
execute_process(
  COMMAND ${BENCH} --benchmark_min_time=0.001 --benchmark_repetitions=2
          --benchmark_report_aggregates_only=true
          --benchmark_out=${WORK_DIR}/results.json --benchmark_out_format=json
  OUTPUT_QUIET
  RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "qtzq-bench failed (${status})")
endif()

find_program(PYTHON3 NAMES python3 REQUIRED)
execute_process(
  COMMAND ${PYTHON3} ${REPORT} ${WORK_DIR}/results.json -o ${WORK_DIR}/BENCHMARKS.md
  RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "report.py failed (${status})")
endif()

file(READ ${WORK_DIR}/BENCHMARKS.md report)
foreach(expected "| `memcpy` |" "| `1020/StyleFilm` |" "| `ScreenEx` |" "| `YUV` |"
                 "| `gaussian/r255` |" "| `zoom` |" "| `SFCurve` |" "generated test scene")
  string(FIND "${report}" "${expected}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "the report lacks ${expected}:\n${report}")
  endif()
endforeach()
