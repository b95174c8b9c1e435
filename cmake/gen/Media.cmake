# Generates the game's images, sounds and sound definitions into the game
# directory. The generators are the committed source; their output is not.
# Debian's python3 is preferred because python3-pil and python3-numpy live there.
find_program(BQ_PYTHON3 python3 PATHS /usr/bin NO_DEFAULT_PATH)
if(NOT BQ_PYTHON3)
  find_program(BQ_PYTHON3 python3 REQUIRED)
endif()

# Runs a generator that writes into the game directory and then touches
# `stamp`; again whenever one of the sources after `comment` changes. The
# target `name` is built with everything, before the game (Music.cmake too).
function(bq_generate name script stamp comment)
  add_custom_command(
    OUTPUT ${stamp}
    COMMAND ${BQ_PYTHON3} ${script} --out ${BQ_GAME_DIR} --stamp ${stamp}
    DEPENDS ${ARGN}
    COMMENT "${comment}"
    VERBATIM)
  add_custom_target(${name} ALL DEPENDS ${stamp})
  if(TARGET brindlequay)
    add_dependencies(brindlequay ${name})
  endif()
endfunction()

file(GLOB BQ_MEDIA_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tools/media/*.py)
set(BQ_MEDIA_STAMP ${CMAKE_BINARY_DIR}/media.stamp)
bq_generate(media ${CMAKE_SOURCE_DIR}/tools/media/generate.py ${BQ_MEDIA_STAMP}
            "Generating images and sounds into ${BQ_GAME_DIR}/data" ${BQ_MEDIA_SOURCES})

# Review aid, not part of the build: every image with its name on one sheet.
add_custom_target(contactsheet
  COMMAND ${BQ_PYTHON3} ${CMAKE_SOURCE_DIR}/tools/media/generate.py
          --out ${BQ_GAME_DIR} --contact-sheet ${CMAKE_BINARY_DIR}/contactsheet.png
  COMMENT "Writing ${CMAKE_BINARY_DIR}/contactsheet.png"
  VERBATIM)

if(BQ_TESTS)
  enable_testing()
  add_test(NAME media_tests
    COMMAND ${BQ_PYTHON3} -m unittest discover -s ${CMAKE_SOURCE_DIR}/tests/media -p "test_*.py")
  set_tests_properties(media_tests PROPERTIES
    ENVIRONMENT "BQ_GAME_DIR=${BQ_GAME_DIR};BQ_SOURCE_DIR=${CMAKE_SOURCE_DIR}"
    LABELS media TIMEOUT 300)
endif()
