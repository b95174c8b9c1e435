# Copies data/, maps/ and demos/ into the game directory, skipping files that are
# already identical, so a rebuild never touches what the player wrote there.
foreach(dir data maps demos)
  if(EXISTS ${SRC}/${dir})
    file(GLOB_RECURSE files RELATIVE ${SRC}/${dir} ${SRC}/${dir}/*)
    foreach(f ${files})
      # config.txt is the player's own file once the game has written it.
      if(f STREQUAL "config.txt" AND EXISTS ${DST}/${dir}/${f})
        continue()
      endif()
      configure_file(${SRC}/${dir}/${f} ${DST}/${dir}/${f} COPYONLY)
    endforeach()
  endif()
endforeach()
