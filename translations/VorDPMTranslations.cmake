# The English catalogs: one for the editor (its sources and the store's texts it shows) and one
# for the reference host. scripts/update-translations.sh brings the .ts files up to date with the
# sources; the build compiles them with lrelease and embeds each in its program or library, so
# that nothing has to be found on disk at run time.
find_package(Qt6 REQUIRED COMPONENTS LinguistTools)

set(VORDPM_TRANSLATIONS_DIR ${CMAKE_CURRENT_LIST_DIR})
set(VORDPM_TRANSLATION_LANGUAGES en)

# Compiles translations/<catalog>_<language>.ts for every language and embeds the results in
# `target` under :/vordpm/translations/. Call it in the directory that defines `target`.
function(vordpm_add_catalog target catalog)
  set(ts_files)
  foreach(language IN LISTS VORDPM_TRANSLATION_LANGUAGES)
    list(APPEND ts_files ${VORDPM_TRANSLATIONS_DIR}/${catalog}_${language}.ts)
  endforeach()
  qt_add_lrelease(${target} TS_FILES ${ts_files} QM_FILES_OUTPUT_VARIABLE qm_files)
  qt_add_resources(${target} ${catalog}_catalog PREFIX /vordpm/translations
    BASE ${CMAKE_CURRENT_BINARY_DIR} FILES ${qm_files})
endfunction()
