# Run by cpack before it makes packages of the files below CPACK_TEMPORARY_DIRECTORY: opens the directories for everybody,
# as the files are. cmake makes them by the umask of whoever runs cpack.
cmake_policy(VERSION 3.21)
file(GLOB_RECURSE paths LIST_DIRECTORIES true ${CPACK_TEMPORARY_DIRECTORY}/*)
foreach(path IN LISTS paths)
    if(IS_DIRECTORY ${path} AND NOT IS_SYMLINK ${path})
        file(CHMOD ${path} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
            WORLD_READ WORLD_EXECUTE)
    endif()
endforeach()
