# InstallBios.cmake: copies FILES (a list of "target=source") into FOLDER, makes their lengths differ,
# and puts the first one in force as vgabios.bin unless one is. A missing source leaves its file out:
# the program then offers the others.

cmake_policy(VERSION 3.25)

set(known_lengths "")
set(first "")
foreach(pair IN LISTS FILES)
    string(REPLACE "=" ";" parts "${pair}")
    list(GET parts 0 target)
    list(GET parts 1 source)
    if(NOT EXISTS ${source})
        message(WARNING "${source} is missing: ${target} cannot be offered")
        continue()
    endif()
    file(REAL_PATH ${source} source)
    configure_file(${source} ${FOLDER}/${target} COPYONLY)
    file(SIZE ${FOLDER}/${target} length)
    # A video BIOS is a whole number of 512-byte blocks; bytes behind its end are never looked at.
    while(length IN_LIST known_lengths)
        execute_process(COMMAND truncate -s +512 ${FOLDER}/${target} COMMAND_ERROR_IS_FATAL ANY)
        file(SIZE ${FOLDER}/${target} length)
    endwhile()
    list(APPEND known_lengths ${length})
    if(NOT first)
        set(first ${FOLDER}/${target})
    endif()
endforeach()
if(first AND NOT EXISTS ${FOLDER}/vgabios.bin)
    configure_file(${first} ${FOLDER}/vgabios.bin COPYONLY)
endif()
file(TOUCH ${STAMP})
