# The demo bot: records demos of real play by following routes, headless.
add_library(demobot_lib STATIC ${CMAKE_SOURCE_DIR}/tools/demobot/Route.cpp ${CMAKE_SOURCE_DIR}/tools/demobot/DemoBot.cpp)
target_include_directories(demobot_lib PUBLIC ${CMAKE_SOURCE_DIR}/tools/demobot)
target_link_libraries(demobot_lib PUBLIC brindlequay_lib)
add_executable(demobot ${CMAKE_SOURCE_DIR}/tools/demobot/main.cpp)
target_link_libraries(demobot PRIVATE demobot_lib)
set_target_properties(demobot PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${BQ_GAME_DIR})
