# wb_embed_text(target namespace file...) compiles text files into `target` as
# `extern const std::string_view k<Name>` in `namespace`, declared in <build>/embedded/<target>.h.
# <Name> is the file's name without its extension, each part capitalised: sql_server.sql gives
# kSqlServer. The files are split into pieces, since a compiler limits one string literal.
function(wb_embed_text target namespace)
  set(dir ${CMAKE_CURRENT_BINARY_DIR}/embedded)
  set(header ${dir}/embedded_${target}.h)
  set(source ${dir}/embedded_${target}.cpp)
  set(inputs)
  foreach(file ${ARGN})
    list(APPEND inputs ${CMAKE_CURRENT_SOURCE_DIR}/${file})
  endforeach()
  add_custom_command(
    OUTPUT ${header} ${source}
    COMMAND ${CMAKE_COMMAND} -DHEADER=${header} -DSOURCE=${source} -DNAMESPACE=${namespace}
            "-DINPUTS=${inputs}" -P ${PROJECT_SOURCE_DIR}/cmake/EmbedTextScript.cmake
    DEPENDS ${inputs} ${PROJECT_SOURCE_DIR}/cmake/EmbedTextScript.cmake
    VERBATIM)
  target_sources(${target} PRIVATE ${source} ${header})
  target_include_directories(${target} PRIVATE ${dir})
endfunction()
