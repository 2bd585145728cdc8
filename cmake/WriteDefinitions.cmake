# Writes the module definition file DEFINITIONS: the functions in OBJECT, as NM lists them, that are
# members of the classes that the headers under HEADERS mark.
set(classes "")
file(GLOB_RECURSE headers "${HEADERS}/*.h")
foreach(header IN LISTS headers)
    file(STRINGS "${header}" lines REGEX "^class HDLBUILDFILE_(API|SHARED_TYPE) ")
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^class [A-Z_]+ ([A-Za-z0-9]+).*" "\\1" class "${line}")
        string(LENGTH "${class}" length)
        list(APPEND classes "${length}${class}")
    endforeach()
endforeach()
list(JOIN classes "|" classes)

execute_process(COMMAND "${NM}" "${OBJECT}" OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL " T _Z[A-Za-z0-9_]+" symbols "${symbols}")
list(FILTER symbols INCLUDE REGEX "^ T _ZNK?(3hdb)?(${classes})")
# Nested classes are the business of the class around them.
list(FILTER symbols EXCLUDE REGEX "(10TPropCache6TState|17TSourceFileGroups6TGroup|19TIHdlSourceFileList14const_iterator)")
list(TRANSFORM symbols REPLACE "^ T " "    ")
list(JOIN symbols "\n" symbols)
file(WRITE "${DEFINITIONS}" "EXPORTS\n${symbols}\n")
