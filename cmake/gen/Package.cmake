# Installing like a Linux game: the binary under bin/, the data under
# share/brindlequay/, a desktop entry, hicolor icons drawn from the game's
# art and AppStream metadata. Also packs the data tree into build/data.zip.
include(GNUInstallDirs)

set(BQ_APP_ID io.github.brindlequay.Brindlequay)
option(BQ_INSTALL_DATAZIP "Install the data as one data.zip instead of the data tree" OFF)

# The game finds its installed data relative to its own binary, so the
# install prefix can be chosen (or moved) after the build.
file(RELATIVE_PATH BQ_INSTALLED_DATA_SUFFIX ${CMAKE_INSTALL_FULL_BINDIR}
     ${CMAKE_INSTALL_FULL_DATADIR}/brindlequay)
set_property(SOURCE ${CMAKE_SOURCE_DIR}/src/resources/GameDirectories.cpp APPEND PROPERTY
             COMPILE_DEFINITIONS BQ_INSTALLED_DATA_SUFFIX="${BQ_INSTALLED_DATA_SUFFIX}")

# data.zip: the staged and generated data tree, packed by Info-ZIP's zip.
# The player's own scripts in the game directory stay out of it.
find_program(BQ_ZIP zip REQUIRED)
set(BQ_DATA_ZIP ${CMAKE_BINARY_DIR}/data.zip)
# The shipped demos go in too, so the binary and data.zip are the whole game;
# recordings the player made in the game directory stay out.
file(GLOB BQ_SHIPPED_DEMOS CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/demos/*.dem)
file(GLOB_RECURSE BQ_DATA_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/data/* ${CMAKE_SOURCE_DIR}/maps/*
     ${CMAKE_SOURCE_DIR}/demos/*.dem)
add_custom_command(
  OUTPUT ${BQ_DATA_ZIP}
  COMMAND ${CMAKE_COMMAND} -E rm -f ${BQ_DATA_ZIP}
  COMMAND ${BQ_ZIP} -q -r -X ${BQ_DATA_ZIP} data maps ${BQ_SHIPPED_DEMOS}
          -x data/config.txt data/userconfig.txt data/autoexec.txt
  WORKING_DIRECTORY ${BQ_GAME_DIR}
  DEPENDS ${BQ_DATA_SOURCES} ${BQ_MEDIA_STAMP} ${BQ_MUSIC_STAMP} ${BQ_FONT_OUTPUTS}
  COMMENT "Packing the data tree into ${BQ_DATA_ZIP}"
  VERBATIM)
add_custom_target(datazip ALL DEPENDS ${BQ_DATA_ZIP})
add_dependencies(datazip stage_data media music fonts)

# Icons in the usual hicolor sizes.
set(BQ_ICON_DIR ${CMAKE_BINARY_DIR}/icons)
set(BQ_ICON_STAMP ${BQ_ICON_DIR}/icons.stamp)
add_custom_command(
  OUTPUT ${BQ_ICON_STAMP}
  COMMAND ${BQ_PYTHON3} ${CMAKE_SOURCE_DIR}/tools/media/appicon.py --out ${BQ_ICON_DIR} --name ${BQ_APP_ID}
  COMMAND ${CMAKE_COMMAND} -E touch ${BQ_ICON_STAMP}
  DEPENDS ${BQ_MEDIA_SOURCES}
  COMMENT "Drawing the desktop icons into ${BQ_ICON_DIR}"
  VERBATIM)
add_custom_target(appicons ALL DEPENDS ${BQ_ICON_STAMP})

install(TARGETS brindlequay RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(BQ_INSTALL_DATAZIP)
  install(FILES ${BQ_DATA_ZIP} DESTINATION ${CMAKE_INSTALL_DATADIR}/brindlequay)
else()
  install(DIRECTORY ${BQ_GAME_DIR}/data ${BQ_GAME_DIR}/maps
          DESTINATION ${CMAKE_INSTALL_DATADIR}/brindlequay
          PATTERN config.txt EXCLUDE PATTERN userconfig.txt EXCLUDE PATTERN autoexec.txt EXCLUDE)
endif()
# The shipped demos, read after the player's own recordings.
install(DIRECTORY ${BQ_GAME_DIR}/demos DESTINATION ${CMAKE_INSTALL_DATADIR}/brindlequay OPTIONAL)
install(FILES ${CMAKE_SOURCE_DIR}/dist/${BQ_APP_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_SOURCE_DIR}/dist/${BQ_APP_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(DIRECTORY ${BQ_ICON_DIR}/hicolor DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)

if(BQ_TESTS)
  enable_testing()
  # The desktop entry and the metadata as desktop environments and software
  # centres read them; --no-net keeps the check offline. A missing validator
  # fails the test (scripts/install-deps.sh installs both).
  add_test(NAME desktop_entry_valid
    COMMAND desktop-file-validate ${CMAKE_SOURCE_DIR}/dist/${BQ_APP_ID}.desktop)
  add_test(NAME metainfo_valid
    COMMAND appstreamcli validate --no-net ${CMAKE_SOURCE_DIR}/dist/${BQ_APP_ID}.metainfo.xml)
endif()
