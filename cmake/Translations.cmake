# SPDX-License-Identifier: MIT
#
# Translations: the keys are collected from the sources, the tables in translations/ compiled into
# the program, and two test languages made from the keys. A file translations/trovell_<language>.ts
# adds a language; nothing else names it.

find_package(Qt6 6.4 REQUIRED COMPONENTS LinguistTools)
find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(trovell_translation_folder ${PROJECT_BINARY_DIR}/translations)
set(trovell_key_file ${trovell_translation_folder}/trovell_keys.cpp)
set(trovell_key_template ${trovell_translation_folder}/trovell_template.ts)
set(trovell_test_languages ${trovell_translation_folder}/test)
set(lupdate_options -silent -locations none -source-language en)

# trovell_compiled_table(table.ts folder variable): a rule that makes folder/table.qm.
function(trovell_compiled_table table folder variable)
    cmake_path(GET table STEM name)
    add_custom_command(OUTPUT ${folder}/${name}.qm
        COMMAND Qt6::lrelease -silent -nounfinished ${table} -qm ${folder}/${name}.qm
        DEPENDS ${table} VERBATIM)
    set(${variable} ${folder}/${name}.qm PARENT_SCOPE)
endfunction()

function(trovell_collect_keys)
    set(tool ${PROJECT_SOURCE_DIR}/tools/words/extract_keys.py)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS
        ${PROJECT_SOURCE_DIR}/src/*.cpp ${PROJECT_SOURCE_DIR}/src/*.h)
    add_custom_command(OUTPUT ${trovell_key_file}
        COMMAND Python3::Interpreter ${tool} ${PROJECT_SOURCE_DIR}/src ${trovell_key_file}
        DEPENDS ${tool} ${sources} VERBATIM)
    add_custom_command(OUTPUT ${trovell_key_template}
        COMMAND ${CMAKE_COMMAND} -E rm -f ${trovell_key_template}
        COMMAND Qt6::lupdate ${lupdate_options} ${trovell_key_file} -ts ${trovell_key_template}
        DEPENDS ${trovell_key_file} VERBATIM)
endfunction()

# trovell_test_language(language variable)
function(trovell_test_language language variable)
    set(tool ${PROJECT_SOURCE_DIR}/tools/words/make_test_language.py)
    set(table ${trovell_test_languages}/trovell_${language}.ts)
    add_custom_command(OUTPUT ${table}
        COMMAND Python3::Interpreter ${tool} ${trovell_key_template} ${table} ${language}
        DEPENDS ${tool} ${trovell_key_template} VERBATIM)
    trovell_compiled_table(${table} ${trovell_test_languages} compiled)
    set(${variable} ${compiled} PARENT_SCOPE)
endfunction()

# trovell_translations(target): compiles the tables into the target as :/trovell/translations.
function(trovell_translations target)
    file(MAKE_DIRECTORY ${trovell_test_languages})
    file(GLOB tables CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/translations/trovell_*.ts)
    set(compiled_tables)
    foreach(table IN LISTS tables)
        trovell_compiled_table(${table} ${trovell_translation_folder} compiled)
        list(APPEND compiled_tables ${compiled})
    endforeach()
    qt_add_resources(${target} ${target}_tables PREFIX /trovell/translations
        BASE ${trovell_translation_folder} FILES ${compiled_tables})

    trovell_collect_keys()
    trovell_test_language(en_XA accented)
    trovell_test_language(ar_XB reversed)
    add_custom_target(trovell_keys ALL DEPENDS ${trovell_key_template} ${accented} ${reversed})

    # Brings new keys into the tables of the tree. The English one holds what it rewords and no more.
    list(FILTER tables EXCLUDE REGEX "trovell_en\\.ts$")
    add_custom_target(update_translations
        COMMAND Qt6::lupdate ${lupdate_options} ${trovell_key_file} -ts ${tables}
        DEPENDS ${trovell_key_file} VERBATIM)
endfunction()
