# Regenerates one table with the generator and fails if the result differs
# from the committed source file. EMULATOR, if set, runs a cross-built
# generator.
execute_process(COMMAND ${EMULATOR} ${GENERATOR} ${TABLE} ${SCRATCH} RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "qtzq-tablegen ${TABLE} failed (${status})")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${SCRATCH} ${COMMITTED}
                RESULT_VARIABLE differs)
if(differs)
  message(FATAL_ERROR "${COMMITTED} is not what `qtzq-tablegen ${TABLE}` writes; "
                      "regenerate it with `cmake --build <dir> --target regenerate-tables`")
endif()
