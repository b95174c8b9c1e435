# libFuzzer targets: every fuzz/*Fuzz.cpp becomes fuzz_<name> when BQ_FUZZ is
# on and the compiler is clang (CC=clang CXX=clang++ cmake -DBQ_FUZZ=ON ...).
# Each has a seed corpus in fuzz/corpus/<name>/ and a short CTest run.
option(BQ_FUZZ "Build the libFuzzer targets (clang only)" OFF)
if(BQ_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(WARNING "BQ_FUZZ needs clang; configure with CC=clang CXX=clang++. Fuzz targets skipped.")
  else()
    # The gcc build enforces the warnings; clang-only ones must not stop fuzzing.
    target_compile_options(brindlequay_lib PUBLIC -fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer
                           -Wno-error)
    target_link_options(brindlequay_lib PUBLIC -fsanitize=address,undefined)
    file(GLOB BQ_FUZZ_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/fuzz/*Fuzz.cpp)
    foreach(src ${BQ_FUZZ_SOURCES})
      get_filename_component(stem ${src} NAME_WE)
      string(REGEX REPLACE "Fuzz$" "" stem ${stem})
      # LevelLoader -> level_loader
      string(REGEX REPLACE "([a-z0-9])([A-Z])" "\\1_\\2" name ${stem})
      string(TOLOWER ${name} name)
      add_executable(fuzz_${name} ${src})
      target_link_libraries(fuzz_${name} PRIVATE brindlequay_lib)
      target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
      if(BQ_TESTS)
        # A short run from a scratch copy of the seeds (new inputs land there,
        # never in the source tree).
        add_test(NAME fuzz_${name}_short
                 COMMAND ${CMAKE_COMMAND} -E env bash -c
                   "rm -rf corpus_${name} && cp -r ${CMAKE_SOURCE_DIR}/fuzz/corpus/${name} corpus_${name} && $<TARGET_FILE:fuzz_${name}> -max_total_time=20 -rss_limit_mb=2048 corpus_${name}"
                 WORKING_DIRECTORY ${CMAKE_BINARY_DIR})
        set_tests_properties(fuzz_${name}_short PROPERTIES LABELS fuzz TIMEOUT 120)
      endif()
    endforeach()
  endif()
endif()
