# SPDX-License-Identifier: MIT
cmake_minimum_required(VERSION 3.25)
# Turns the catalogue of parameters into a source of the boot engine, so that names, numbers and
# defaults stand in one place only:
#
#   cmake -DCATALOGUE=data/catalogue/0409_SETTINGS -DOUTPUT=catalogue.inc -P catalogue.cmake
#
# Each name becomes a word for 256 * file + number; of the sparkles, whose names repeat, the first.
file(READ ${CATALOGUE} text)
string(REGEX MATCHALL "zuk[0-9][0-9][0-9][0-9]|:[0-9]+:s[.][A-Za-z0-9.]+=[0-9xXa-fA-F]+" items "${text}")
set(words "")
set(defaults "")
set(known "")
set(count 0)
foreach(item IN LISTS items)
    if(item MATCHES "zuk([0-9]+)$")
        math(EXPR file "${CMAKE_MATCH_1}")
    elseif(item MATCHES ":0*([0-9]+):(.*)=(.*)$")
        math(EXPR number "${file} * 256 + ${CMAKE_MATCH_1}")
        string(REPLACE "0X" "0x" value ${CMAKE_MATCH_3})
        string(APPEND defaults "  dup ${number} ${value} put\n")
        if(NOT CMAKE_MATCH_2 IN_LIST known)
            list(APPEND known ${CMAKE_MATCH_2})
            string(APPEND words "/${CMAKE_MATCH_2} ${number} def\n")
        endif()
        math(EXPR count "${count} + 1")
    endif()
endforeach()
if(count EQUAL 0)
    message(FATAL_ERROR "${CATALOGUE} holds no parameters")
endif()
file(WRITE ${OUTPUT} "% Made of the catalogue: ${count} parameters.\n${words}\n% ( array -- ) puts the defaults into their places\n/params.default {\n${defaults}  pop\n} def\n")
