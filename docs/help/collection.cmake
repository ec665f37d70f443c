# Lays the pages, the style and the pictures that the pages show into STAGE, makes the collection there and puts it into
# DOC. The generator looks for all files beside its project, and writes there too; hence the stage.
file(REMOVE_RECURSE ${STAGE})
file(GLOB pages ${PAGES}/*.html ${PAGES}/*.qhp ${PAGES}/*.qhcp)
file(COPY ${pages} ${STYLE} DESTINATION ${STAGE})

foreach(page ${pages})
    file(READ ${page} text)
    string(REGEX MATCHALL "src=\"images/[^\"/]+\"" shown "${text}")
    foreach(picture ${shown})
        string(REGEX REPLACE "src=\"images/(.+)\"" "\\1" picture ${picture})
        if(NOT EXISTS ${PICTURES}/${picture})
            message(FATAL_ERROR "${page} shows images/${picture}, and there is no ${PICTURES}/${picture}")
        endif()
        file(COPY ${PICTURES}/${picture} DESTINATION ${STAGE}/images)
    endforeach()
endforeach()

execute_process(
    COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${GENERATOR} -s ${NAME}.qhcp -o ${NAME}.qhc
    WORKING_DIRECTORY ${STAGE}
    RESULT_VARIABLE result
    OUTPUT_VARIABLE said
    ERROR_VARIABLE said)
if(NOT result EQUAL 0 OR NOT EXISTS ${STAGE}/${NAME}.qhc)
    message(FATAL_ERROR "The help ${NAME} could not be made:\n${said}")
endif()
file(COPY ${STAGE}/${NAME}.qch ${STAGE}/${NAME}.qhc DESTINATION ${DOC})
# A file that did not change keeps its old time; the build must see that it was made.
file(TOUCH ${DOC}/${NAME}.qhc)
