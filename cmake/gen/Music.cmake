# Renders the music tracks from their note files into the game directory as
# Ogg Vorbis (data/music/<track>.ogg). Only the synthesiser and the note
# files are committed.
file(GLOB BQ_MUSIC_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tools/music/*.py
     ${CMAKE_SOURCE_DIR}/tools/music/tracks/*.txt)
set(BQ_MUSIC_STAMP ${CMAKE_BINARY_DIR}/music.stamp)
add_custom_command(
  OUTPUT ${BQ_MUSIC_STAMP}
  COMMAND ${BQ_PYTHON3} ${CMAKE_SOURCE_DIR}/tools/music/music.py
          --out ${BQ_GAME_DIR} --stamp ${BQ_MUSIC_STAMP}
  DEPENDS ${BQ_MUSIC_SOURCES}
  COMMENT "Rendering the music into ${BQ_GAME_DIR}/data/music"
  VERBATIM)
add_custom_target(music ALL DEPENDS ${BQ_MUSIC_STAMP})
if(TARGET brindlequay)
  add_dependencies(brindlequay music)
endif()

# tests/media/test_music.py runs with the media tests.
