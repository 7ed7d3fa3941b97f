# Checks that the shipped example database holds what its SQL text makes: sqlite3 builds a fresh
# database from the text, dumps both as SQL text, and the two dumps must be the same.
#   cmake -DSQLITE3=<sqlite3> -DDATA_DIR=<examples/data> -DWORK_DIR=<folder> -P CheckExampleDatabase.cmake
set(fresh ${WORK_DIR}/lists-from-sql.db)
file(REMOVE ${fresh})
execute_process(COMMAND ${SQLITE3} -bail ${fresh} ".read '${DATA_DIR}/lists.sql'"
    RESULT_VARIABLE built)
if(NOT built EQUAL 0)
    message(FATAL_ERROR "sqlite3 could not run ${DATA_DIR}/lists.sql")
endif()
execute_process(COMMAND ${SQLITE3} -readonly ${fresh} .dump
    OUTPUT_VARIABLE expected RESULT_VARIABLE dumpedFresh)
execute_process(COMMAND ${SQLITE3} -readonly ${DATA_DIR}/lists.db .dump
    OUTPUT_VARIABLE shipped RESULT_VARIABLE dumpedShipped)
file(REMOVE ${fresh})
if(NOT dumpedFresh EQUAL 0 OR NOT dumpedShipped EQUAL 0 OR NOT shipped STREQUAL expected)
    message(FATAL_ERROR "${DATA_DIR}/lists.db does not hold what lists.sql makes; make it "
                        "again as lists.sql says")
endif()
