# Checks the catalogues against the code, run by ctest as a script:
#   cmake -DLUPDATE=... -DLRELEASE=... -DSOURCE_DIR=<project> -DWORK_DIR=<scratch> -P CheckCatalogues.cmake
# 1. lupdate merges the code's texts into scratch copies of the .ts files:
#    a text of the code that no catalogue translates comes out
#    "unfinished", a catalogue text the code no longer has "vanished".
# 2. lrelease compiles the committed .ts files and must report every
#    entry finished.
include(${SOURCE_DIR}/host/translations/Catalogues.cmake)

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
set(problems)

foreach(catalogue ${RADIO_CATALOGUES})
    set(copies)
    foreach(lang ${RADIO_LANGUAGES})
        configure_file(${SOURCE_DIR}/host/translations/${catalogue}_${lang}.ts ${WORK_DIR}/${catalogue}_${lang}.ts COPYONLY)
        list(APPEND copies ${WORK_DIR}/${catalogue}_${lang}.ts)
    endforeach()
    set(sources)
    foreach(dir ${RADIO_CATALOGUE_${catalogue}_SOURCES})
        list(APPEND sources ${SOURCE_DIR}/${dir})
    endforeach()
    execute_process(COMMAND ${LUPDATE} -silent ${RADIO_LUPDATE_OPTIONS} ${sources} -ts ${copies}
                    RESULT_VARIABLE status ERROR_VARIABLE errors)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "lupdate failed on ${catalogue}: ${errors}")
    endif()
    foreach(copy ${copies})
        get_filename_component(name ${copy} NAME)
        file(STRINGS ${copy} lines ENCODING UTF-8)
        set(context "")
        set(source "")
        foreach(line IN LISTS lines)
            if(line MATCHES "<name>(.*)</name>")
                set(context "${CMAKE_MATCH_1}")
            elseif(line MATCHES "<source>(.*)</source>")
                set(source "${CMAKE_MATCH_1}")
            elseif(line MATCHES "type=\"(unfinished|vanished|obsolete)\"")
                if(CMAKE_MATCH_1 STREQUAL "unfinished")
                    list(APPEND problems "${name}: not translated: ${context} \"${source}\"")
                else()
                    list(APPEND problems "${name}: no longer in the code: ${context} \"${source}\"")
                endif()
            endif()
        endforeach()
    endforeach()

    foreach(lang ${RADIO_LANGUAGES})
        execute_process(COMMAND ${LRELEASE} ${SOURCE_DIR}/host/translations/${catalogue}_${lang}.ts
                                -qm ${WORK_DIR}/${catalogue}_${lang}.qm
                        RESULT_VARIABLE status OUTPUT_VARIABLE report ERROR_VARIABLE report)
        if(NOT status EQUAL 0)
            list(APPEND problems "${catalogue}_${lang}.ts: lrelease failed: ${report}")
        elseif(NOT report MATCHES "\\(([0-9]+) finished and 0 unfinished\\)" OR report MATCHES "untranslated")
            list(APPEND problems "${catalogue}_${lang}.ts: lrelease reports unfinished entries: ${report}")
        endif()
    endforeach()
endforeach()

if(problems)
    list(JOIN problems "\n  " text)
    message(FATAL_ERROR "The catalogues in host/translations do not match the code; run "
                        "`cmake --build build --target translations-update`, translate, commit:\n  ${text}")
endif()
message(STATUS "catalogues complete: ${RADIO_CATALOGUES} x ${RADIO_LANGUAGES}")
