# Writes the ISO 4217 currency, ISO 3166-1 country and ISO 639 language tables of the
# explanations as C++ arrays, from Debian's iso-codes data, so that nobody types them in.
# Run as: cmake -DISO_CODES_DIR=/usr/share/iso-codes/json -DOUTPUT=IsoTables.inc -P this
cmake_minimum_required(VERSION 3.25)

function(read_entries file key out)
    file(READ "${ISO_CODES_DIR}/${file}" document)
    string(JSON count LENGTH "${document}" "${key}")
    math(EXPR last "${count} - 1")
    set(entries "")
    foreach(i RANGE ${last})
        string(JSON entry GET "${document}" "${key}" ${i})
        list(APPEND entries "${entry}")
    endforeach()
    set(${out} "${entries}" PARENT_SCOPE)
endfunction()

# A C++ string literal of text; names carry no control characters.
function(cxx_literal text out)
    string(REPLACE "\\" "\\\\" text "${text}")
    string(REPLACE "\"" "\\\"" text "${text}")
    set(${out} "\"${text}\"" PARENT_SCOPE)
endfunction()

# The field of one entry, or empty when the entry has none; list separators are replaced
# so that the entry can sit in a CMake list.
function(field entry name out)
    string(JSON value ERROR_VARIABLE missing GET "${entry}" "${name}")
    if(missing)
        set(value "")
    endif()
    string(REPLACE ";" "," value "${value}")
    set(${out} "${value}" PARENT_SCOPE)
endfunction()

# The three-digit code without its leading zeros, which C++ would read as octal.
function(decimal digits out)
    string(REGEX REPLACE "^0+([0-9])" "\\1" digits "${digits}")
    set(${out} "${digits}" PARENT_SCOPE)
endfunction()

# Rows sorted by their three-digit key, which is then dropped.
function(join_by_key rows out)
    list(SORT rows)
    list(TRANSFORM rows REPLACE "^[0-9][0-9][0-9]" "")
    list(JOIN rows "\n" joined)
    set(${out} "${joined}" PARENT_SCOPE)
endfunction()

set(text "// Generated from Debian's iso-codes data by GenerateIsoTables.cmake. Do not edit.\n")

read_entries(iso_4217.json "4217" currencies)
set(rows "")
foreach(entry IN LISTS currencies)
    field("${entry}" numeric numeric)
    field("${entry}" alpha_3 alpha)
    field("${entry}" name name)
    cxx_literal("${name}" name)
    decimal("${numeric}" number)
    list(APPEND rows "${numeric}    {${number}, \"${alpha}\", ${name}},")
endforeach()
join_by_key("${rows}" joined)
string(APPEND text "constexpr IsoCurrency kIsoCurrencies[] = {\n${joined}\n};\n")

read_entries(iso_3166-1.json "3166-1" countries)
set(rows "")
foreach(entry IN LISTS countries)
    field("${entry}" numeric numeric)
    field("${entry}" alpha_2 alpha2)
    field("${entry}" alpha_3 alpha3)
    field("${entry}" name name)
    cxx_literal("${name}" name)
    decimal("${numeric}" number)
    list(APPEND rows "${numeric}    {${number}, \"${alpha2}\", \"${alpha3}\", ${name}},")
endforeach()
join_by_key("${rows}" joined)
string(APPEND text "constexpr IsoCountry kIsoCountries[] = {\n${joined}\n};\n")

read_entries(iso_639-2.json "639-2" languages)
set(rows "")
foreach(entry IN LISTS languages)
    field("${entry}" alpha_2 alpha2)
    if(alpha2 STREQUAL "")
        continue()
    endif()
    field("${entry}" name name)
    cxx_literal("${name}" name)
    list(APPEND rows "    {\"${alpha2}\", ${name}},")
endforeach()
list(SORT rows)
list(JOIN rows "\n" joined)
string(APPEND text "constexpr IsoLanguage kIsoLanguages[] = {\n${joined}\n};\n")

# Written only when it changed, so that a rerun rebuilds nothing.
file(CONFIGURE OUTPUT "${OUTPUT}" CONTENT "${text}" @ONLY)
