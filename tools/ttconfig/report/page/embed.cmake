# cmake -DOUTPUT=FILE.cpp -P embed.cmake: writes the files of this folder into a C++ source that defines kPagePieces. It
# adds the hashes of the style and the script, so that a page allows nothing else.

set(scripts base.js tables.js matrix.js source.js sessions.js page.js)

# Converts a SHA-256 in hexadecimal digits to base 64.
function(base64_of_hash hex result)
    set(letters ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/)
    set(text "")
    # 32 bytes: ten groups of three, and two bytes that are padded.
    foreach(at RANGE 0 60 6)
        string(SUBSTRING "${hex}0000" ${at} 6 digits)
        math(EXPR bits "0x${digits}")
        foreach(shift 18 12 6 0)
            math(EXPR letter "(${bits} >> ${shift}) & 63")
            string(SUBSTRING "${letters}" ${letter} 1 letter)
            string(APPEND text "${letter}")
        endforeach()
    endforeach()
    string(SUBSTRING "${text}" 0 43 text)
    set(${result} "sha256-${text}=" PARENT_SCOPE)
endfunction()

file(READ "${CMAKE_CURRENT_LIST_DIR}/report.html" markup)
file(READ "${CMAKE_CURRENT_LIST_DIR}/report.css" style)
set(script "")
foreach(name IN LISTS scripts)
    file(READ "${CMAKE_CURRENT_LIST_DIR}/${name}" piece)
    string(APPEND script "${piece}")
endforeach()
foreach(part style script)
    string(SHA256 hash "${${part}}")
    base64_of_hash(${hash} ${part}_hash)
endforeach()

# Compilers need not accept one literal of this length, so split it into pieces of whole lines.
function(literal text result)
    string(LENGTH "${text}" length)
    set(pieces "")
    set(at 0)
    while(at LESS length)
        string(SUBSTRING "${text}" ${at} 8000 piece)
        string(FIND "${piece}" "\n" end REVERSE)
        math(EXPR end "${end} + 1")
        string(SUBSTRING "${text}" ${at} ${end} piece)
        string(APPEND pieces "\nR\"page(${piece})page\"")
        math(EXPR at "${at} + ${end}")
    endwhile()
    set(${result} "${pieces}" PARENT_SCOPE)
endfunction()
literal("${markup}" markup)
literal("${style}" style)
literal("${script}" script)

file(WRITE "${OUTPUT}" "// Made by the build from the files of report/page/.

#include \"ttconfig/report/pagepieces.h\"

namespace ttconfig {

const PagePieces kPagePieces = {${markup},
${style},
${script},
\"${style_hash}\",
\"${script_hash}\"};

}  // namespace ttconfig
")
