# The catalogues against the code, run by ctest as a script:
#   cmake -DLUPDATE=... -DLRELEASE=... -DSOURCE_DIR=<project> -DWORK_DIR=<scratch> -P CheckCatalogues.cmake
# lupdate merges the code's texts into scratch copies of the .ts files: a
# text no catalogue translates comes out "unfinished", a text the code no
# longer has "vanished". lrelease must find every committed entry finished.
include(${SOURCE_DIR}/host/translations/Catalogues.cmake)
file(REMOVE_RECURSE ${WORK_DIR})
set(problems)
foreach(catalogue ${RADIO_CATALOGUES})
    set(copies)
    foreach(lang ${RADIO_LANGUAGES})
        set(ts ${SOURCE_DIR}/host/translations/${catalogue}_${lang}.ts)
        configure_file(${ts} ${WORK_DIR}/${catalogue}_${lang}.ts COPYONLY)
        list(APPEND copies ${WORK_DIR}/${catalogue}_${lang}.ts)
        execute_process(COMMAND ${LRELEASE} ${ts} -qm ${WORK_DIR}/${catalogue}_${lang}.qm
                        OUTPUT_VARIABLE report ERROR_VARIABLE report)
        if(NOT report MATCHES "\\([0-9]+ finished and 0 unfinished\\)" OR report MATCHES "untranslated")
            list(APPEND problems "${catalogue}_${lang}.ts, lrelease: ${report}")
        endif()
    endforeach()
    list(TRANSFORM RADIO_CATALOGUE_${catalogue}_SOURCES PREPEND ${SOURCE_DIR}/ OUTPUT_VARIABLE sources)
    execute_process(COMMAND ${LUPDATE} -silent ${RADIO_LUPDATE_OPTIONS} ${sources} -ts ${copies}
                    RESULT_VARIABLE status ERROR_VARIABLE errors)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "lupdate failed on ${catalogue}: ${errors}")
    endif()
    foreach(copy ${copies})
        file(READ ${copy} merged)
        string(REGEX MATCHALL "<source>[^<]*</source>[ \n]*<translation type=\"(unfinished|vanished|obsolete)\""
               entries "${merged}")
        foreach(entry ${entries})
            string(REGEX REPLACE "<source>([^<]*)</source>.*type=\"([a-z]+)\"" "\"\\1\" \\2" entry "${entry}")
            get_filename_component(name ${copy} NAME)
            list(APPEND problems "${name}: ${entry}")
        endforeach()
    endforeach()
endforeach()
if(problems)
    list(JOIN problems "\n  " text)
    message(FATAL_ERROR "host/translations does not match the code (unfinished: a text of the code no catalogue "
                        "translates; vanished: a text the code no longer has). Run `cmake --build build --target "
                        "translations-update`, translate, commit.\n  ${text}")
endif()
