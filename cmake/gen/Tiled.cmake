# The Tiled extension for level makers: staged into the game directory and
# installed with the data, where "brindlequay --tiled-project" points Tiled.
add_custom_target(stage_tiled ALL
  COMMAND ${CMAKE_COMMAND} -E make_directory ${BQ_GAME_DIR}/tiled/extensions/brindlequay
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${CMAKE_SOURCE_DIR}/tools/tiled/brindlequay.js
          ${BQ_GAME_DIR}/tiled/extensions/brindlequay/brindlequay.js
  COMMENT "Staging the Tiled extension")
add_dependencies(brindlequay stage_tiled)
include(GNUInstallDirs)
install(FILES ${CMAKE_SOURCE_DIR}/tools/tiled/brindlequay.js
        DESTINATION ${CMAKE_INSTALL_DATADIR}/brindlequay/tiled/extensions/brindlequay)
install(FILES ${CMAKE_SOURCE_DIR}/tools/tiled/README.md DESTINATION ${CMAKE_INSTALL_DATADIR}/brindlequay/tiled)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/tools/tiled/doc DESTINATION ${CMAKE_INSTALL_DATADIR}/brindlequay/tiled)

if(BQ_TESTS)
  enable_testing()
  # Every shipped level (wave files are not levels) passes the level checker.
  file(GLOB bq_level_files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/maps/*.xml)
  set(bq_levels "")
  foreach(f ${bq_level_files})
    file(STRINGS ${f} objects REGEX "<Objects")
    if(objects)
      get_filename_component(name ${f} NAME)
      list(APPEND bq_levels maps/${name})
    endif()
  endforeach()
  add_test(NAME levels_check COMMAND brindlequay --check-level ${bq_levels}
           WORKING_DIRECTORY ${BQ_GAME_DIR})
  set_tests_properties(levels_check PROPERTIES LABELS levels TIMEOUT 60)
  add_test(NAME levels_tiled_roundtrip
           COMMAND bash ${CMAKE_SOURCE_DIR}/tests/tiled/roundtrip.sh ${CMAKE_SOURCE_DIR}
                   $<TARGET_FILE:brindlequay_tests>)
  set_tests_properties(levels_tiled_roundtrip PROPERTIES LABELS levels TIMEOUT 300 RESOURCE_LOCK display)
endif()
