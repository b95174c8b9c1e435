# Bakes the bitmap fonts (four font XMLs with their glyph pages, and the
# fallback cell bitmap) from Bitstream Vera into the game's data/fonts.
find_program(BQ_FONT_PYTHON NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH)
if(NOT BQ_FONT_PYTHON)
  find_program(BQ_FONT_PYTHON NAMES python3 REQUIRED)
endif()

set(BQ_FONT_DIR ${BQ_GAME_DIR}/data/fonts)
set(BQ_FONT_OUTPUTS)
foreach(stem vera_12 verabd_14 verabd_18 verabd_24)
  list(APPEND BQ_FONT_OUTPUTS ${BQ_FONT_DIR}/${stem}.xml ${BQ_FONT_DIR}/${stem}.png)
endforeach()
list(APPEND BQ_FONT_OUTPUTS ${BQ_FONT_DIR}/font.tga)

add_custom_command(
  OUTPUT ${BQ_FONT_OUTPUTS}
  COMMAND ${BQ_FONT_PYTHON} ${CMAKE_SOURCE_DIR}/tools/makefonts.py --out ${BQ_FONT_DIR}
  DEPENDS ${CMAKE_SOURCE_DIR}/tools/makefonts.py
  COMMENT "Baking bitmap fonts into ${BQ_FONT_DIR}"
  VERBATIM)
add_custom_target(fonts ALL DEPENDS ${BQ_FONT_OUTPUTS})
add_dependencies(brindlequay fonts)
