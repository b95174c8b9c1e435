# Renders the music tracks from their note files into the game directory as
# Ogg Vorbis (data/music/<track>.ogg). Only the synthesiser and the note
# files are committed.
file(GLOB BQ_MUSIC_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tools/music/*.py
     ${CMAKE_SOURCE_DIR}/tools/music/tracks/*.txt)
set(BQ_MUSIC_STAMP ${CMAKE_BINARY_DIR}/music.stamp)
bq_generate(music ${CMAKE_SOURCE_DIR}/tools/music/music.py ${BQ_MUSIC_STAMP}
            "Rendering the music into ${BQ_GAME_DIR}/data/music" ${BQ_MUSIC_SOURCES})

# tests/media/test_music.py runs with the media tests.
