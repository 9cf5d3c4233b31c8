# Run by wb_embed_text at build time. Bytes are written as hexadecimal, so that no delimiter, escape
# or length limit of string literals matters.
get_filename_component(header_name ${HEADER} NAME)
set(declarations)
set(definitions)
foreach(file ${INPUTS})
  get_filename_component(stem ${file} NAME_WE)
  string(REPLACE "-" "_" stem ${stem})
  string(REPLACE "_" ";" parts ${stem})
  set(name k)
  foreach(part ${parts})
    string(SUBSTRING ${part} 0 1 first)
    string(SUBSTRING ${part} 1 -1 rest)
    string(TOUPPER ${first} first)
    string(APPEND name ${first}${rest})
  endforeach()
  file(READ ${file} hex HEX)
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
  string(REGEX REPLACE "(0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,)"
         "\\1\n" bytes "${bytes}")
  string(APPEND declarations "extern const std::string_view ${name};\n")
  string(APPEND definitions
    "static const unsigned char ${name}Bytes[] = {\n${bytes}0};\n"
    "const std::string_view ${name}{reinterpret_cast<const char*>(${name}Bytes),"
    " sizeof ${name}Bytes - 1};\n")
endforeach()
file(WRITE ${HEADER}
  "#pragma once\n#include <string_view>\nnamespace ${NAMESPACE} {\n${declarations}}\n")
file(WRITE ${SOURCE}
  "#include \"${header_name}\"\nnamespace ${NAMESPACE} {\n${definitions}}\n")
