# Puts the page together: every file that a static server needs, and no others.
#
#     cmake -D PAGE_DIR=… -D RESOURCES_DIR=… -D WASM=… -D OUT_DIR=… -P assemble.cmake
#
# OUT_DIR is made anew, whatever was in it. The same files make the same page, to the byte.
cmake_minimum_required(VERSION 3.25)

file(GLOB page_files RELATIVE ${PAGE_DIR} ${PAGE_DIR}/*)
list(REMOVE_ITEM page_files sw.js)
file(GLOB resources RELATIVE ${RESOURCES_DIR}
    ${RESOURCES_DIR}/pictures/*.jpg ${RESOURCES_DIR}/pictures/*.png
    ${RESOURCES_DIR}/sounds/*.mp3 ${RESOURCES_DIR}/strings/*.strings)

# The icons are those that the page and its manifest name.
file(READ ${PAGE_DIR}/index.html page)
file(READ ${PAGE_DIR}/manifest.webmanifest manifest)
string(REGEX MATCHALL "resources/icons/[^\"]+" icons "${page}${manifest}")
list(TRANSFORM icons REPLACE "^resources/" "")
list(REMOVE_DUPLICATES icons)

set(files ${page_files} velmorath.wasm resources/index.json)
file(REMOVE_RECURSE ${OUT_DIR})
file(MAKE_DIRECTORY ${OUT_DIR})
foreach(name IN LISTS page_files)
    if(name MATCHES "\\.js$")
        # Comments are a third of what a script weighs. They stand on lines of their own. What is indented comes next;
        # no text goes over several lines.
        file(READ ${PAGE_DIR}/${name} script)
        string(REGEX REPLACE "/\\*\\*([^*]|\\*+[^*/])*\\*+/" "" script "${script}")
        string(REGEX REPLACE "\n *//[^\n]*" "" script "${script}")
        string(REGEX REPLACE "\n[ \n]+" "\n" script "${script}")
        file(WRITE ${OUT_DIR}/${name} "${script}")
    else()
        file(COPY ${PAGE_DIR}/${name} DESTINATION ${OUT_DIR})
    endif()
endforeach()
file(COPY_FILE ${WASM} ${OUT_DIR}/velmorath.wasm)
foreach(name IN LISTS resources icons)
    cmake_path(GET name PARENT_PATH folder)
    file(COPY ${RESOURCES_DIR}/${name} DESTINATION ${OUT_DIR}/resources/${folder})
    list(APPEND files resources/${name})
endforeach()

# Pictures that weigh more than a symbol are fetched when the program asks for them: of them it knows the size before.
function(find_picture_size name result)
    file(READ ${RESOURCES_DIR}/${name} bytes HEX)
    # The head of a PNG file, or a frame of three colours in a JPEG file, which begins with its height.
    if(bytes MATCHES "^89504e470d0a1a0a0000000d49484452(........)(........)")
        math(EXPR width "0x${CMAKE_MATCH_1}")
        math(EXPR height "0x${CMAKE_MATCH_2}")
    elseif(bytes MATCHES "ffc[02]001108(....)(....)03")
        math(EXPR width "0x${CMAKE_MATCH_2}")
        math(EXPR height "0x${CMAKE_MATCH_1}")
    else()
        message(FATAL_ERROR "${name} does not say its size")
    endif()
    set(${result} "[${width}, ${height}]" PARENT_SCOPE)
endfunction()

set(index "")
foreach(name IN LISTS resources)
    set(size null)
    file(SIZE ${RESOURCES_DIR}/${name} weight)
    if(name MATCHES "^pictures/" AND weight GREATER 2048)
        find_picture_size(${name} size)
    endif()
    list(APPEND index "    \"${name}\": ${size}")
endforeach()
list(JOIN index ",\n" index)
file(WRITE ${OUT_DIR}/resources/index.json "{\n${index}\n}\n")

# The page itself goes by its folder's address, under which every server has it.
set(digests "")
list(SORT files)
foreach(name IN LISTS files)
    file(SHA256 ${OUT_DIR}/${name} digest)
    string(REGEX REPLACE "^index\\.html$" "./" address ${name})
    string(APPEND digests "    \"${address}\": \"${digest}\",\n")
endforeach()
file(READ ${PAGE_DIR}/sw.js worker)
string(SHA256 version "${digests}${worker}")
string(SUBSTRING ${version} 0 16 version)
string(REPLACE " /*@FILES@*/ " "\n${digests}" worker "${worker}")
string(REPLACE "@VERSION@" ${version} worker "${worker}")
if(NOT worker MATCHES "\"${version}\"" OR NOT worker MATCHES "velmorath\\.wasm")
    message(FATAL_ERROR "The template sw.js has no place for the version or for the files")
endif()
file(WRITE ${OUT_DIR}/sw.js "${worker}")
