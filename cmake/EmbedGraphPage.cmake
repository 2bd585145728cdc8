# Puts the page of graphs together and writes it into a source: OUTPUT, from SOURCES (page.html, a style
# sheet, scripts) and LIBRARIES (a licence and a script of each). Without libraries there is no page.
cmake_minimum_required(VERSION 3.25)
set(page "")
if(LIBRARIES)
    list(POP_FRONT SOURCES html css)
    file(READ "${html}" page)
    file(READ "${css}" style)
    set(script "")
    foreach(source IN LISTS SOURCES)
        file(READ "${source}" text)
        string(APPEND script "${text}")
    endforeach()
    set(libraries "")
    while(LIBRARIES)
        list(POP_FRONT LIBRARIES license library)
        file(READ "${license}" license)
        file(READ "${library}" text)
        string(REGEX REPLACE "//# sourceMappingURL=[^\n]*" "" text "${text}")
        string(APPEND libraries "<script>\n/*\n${license}*/\n${text}\n</script>\n")
    endwhile()
    foreach(part style script)
        if("${${part}}" MATCHES "</script|</style|<!--")
            message(FATAL_ERROR "the page's ${part} would end its element")
        endif()
    endforeach()
    foreach(part style libraries script)
        string(REPLACE "{{${part}}}" "${${part}}" page "${page}")
    endforeach()
endif()
file(WRITE "${OUTPUT}.html" "${page}")
file(READ "${OUTPUT}.html" bytes HEX)
file(REMOVE "${OUTPUT}.html")
string(REGEX REPLACE "(................................)" "\\1\n" bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
file(WRITE "${OUTPUT}" "#include \"flows/graph/htmlgraph.h\"

namespace {

// A zero ends it: without a page there would be no array.
constexpr unsigned char kPage[] = {
${bytes}0x00};

}  // namespace

std::string_view GetGraphPage() {
    return {reinterpret_cast<const char*>(kPage), sizeof(kPage) - 1};
}
")
