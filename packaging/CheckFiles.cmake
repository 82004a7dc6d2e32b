# Run by cpack before it makes packages of the files below CPACK_TEMPORARY_DIRECTORY: fails where one of them would make the
# loader search a directory that is not the system's, or names a directory of the machine that it was built on.
#   CPACK_VQ_READELF      the program readelf
#   CPACK_VQ_RUN_PATHS    the absolute directories that a run path may have
#   CPACK_VQ_BUILD_PATHS  the directories of this machine
cmake_policy(VERSION 3.21)

# Every entry is below the file's own directory, or one of those that were asked for.
function(check_run_path file)
    execute_process(COMMAND ${CPACK_VQ_READELF} -dW ${file}
        OUTPUT_VARIABLE dynamic RESULT_VARIABLE code ERROR_VARIABLE errors)
    if(NOT code EQUAL 0)
        message(FATAL_ERROR "cannot read ${file}: ${errors}")
    endif()
    string(REGEX MATCHALL "\\((RPATH|RUNPATH)\\)[^\n]*" lines "${dynamic}")
    foreach(line IN LISTS lines)
        string(REGEX REPLACE ".*\\[(.*)\\].*" "\\1" run_path "${line}")
        if(":${run_path}:" MATCHES "::")
            message(FATAL_ERROR "${file}: its run path \"${run_path}\" has an empty entry, the working directory")
        endif()
        string(REPLACE ":" ";" entries "${run_path}")
        foreach(entry IN LISTS entries)
            if(NOT entry MATCHES "^[$]ORIGIN(/|$)" AND NOT entry IN_LIST CPACK_VQ_RUN_PATHS)
                message(FATAL_ERROR "${file}: its run path has \"${entry}\", which is no directory of an installation")
            endif()
        endforeach()
    endforeach()
endfunction()

function(check_text file)
    foreach(path IN LISTS CPACK_VQ_BUILD_PATHS)
        string(REGEX REPLACE "([][+.*()^$?|])" "\\\\\\1" pattern "${path}")
        file(STRINGS ${file} found REGEX "${pattern}" LIMIT_COUNT 1)
        if(found)
            message(FATAL_ERROR "${file} names ${path}, a directory of the machine that it was built on: ${found}")
        endif()
    endforeach()
endfunction()

if(NOT IS_DIRECTORY "${CPACK_TEMPORARY_DIRECTORY}")
    message(FATAL_ERROR "there are no files to check in \"${CPACK_TEMPORARY_DIRECTORY}\"")
endif()
file(GLOB_RECURSE files LIST_DIRECTORIES false ${CPACK_TEMPORARY_DIRECTORY}/*)
foreach(file IN LISTS files)
    if(IS_SYMLINK ${file})
        continue()
    endif()
    file(READ ${file} magic LIMIT 4 HEX)
    if(magic STREQUAL "7f454c46")
        check_run_path(${file})
    endif()
    check_text(${file})
endforeach()
