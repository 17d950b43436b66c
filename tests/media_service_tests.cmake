# The media service: its parser and devices, its contract over both engines, and what is seen on the screen.

set(TANDREL_TEST_MEDIA ${CMAKE_BINARY_DIR}/test_media)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
include(${CMAKE_SOURCE_DIR}/cmake/made_media.cmake)
tandrel_made_media(test_media test_media ${CMAKE_CURRENT_SOURCE_DIR}/support/make_test_media.py "test media"
                   ${CMAKE_CURRENT_SOURCE_DIR}/support/film_media.py)

add_library(tandrel_media_test_support STATIC support/simulated_engine.cpp support/test_media.cpp)
target_include_directories(tandrel_media_test_support PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_compile_definitions(tandrel_media_test_support PUBLIC TANDREL_TEST_MEDIA="${TANDREL_TEST_MEDIA}")
target_link_libraries(tandrel_media_test_support PUBLIC tandrel_platform_mci tandrel_platform_mpv PkgConfig::xcb
                                                 PRIVATE tandrel_flags)

# What plays in real time runs in several tries.
set(IN_REAL_TIME ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/support/in_real_time.py)
set(ON_A_DISPLAY xvfb-run -a -s "-screen 0 1920x1080x24 -s 0 -noreset")

# tandrel_media_test(NAME DISPLAY|NODISPLAY|UNIT source...): a test program. With DISPLAY it brings an X server of its own;
# UNIT is for what doesn't play.
function(tandrel_media_test name display)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE tandrel_media_test_support GTest::gtest_main tandrel_flags)
  add_dependencies(${name} test_media)
  set(command ${IN_REAL_TIME} $<TARGET_FILE:${name}>)
  if(display STREQUAL DISPLAY)
    set(command ${ON_A_DISPLAY} ${command})
  elseif(display STREQUAL UNIT)
    set(command ${name})
  endif()
  add_test(NAME ${name} COMMAND ${command})
  set_tests_properties(${name} PROPERTIES TIMEOUT 1200 ENVIRONMENT
    "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/support/leaks.supp")
  if(display STREQUAL DISPLAY)
    set_tests_properties(${name} PROPERTIES LABELS "display;timed")
  endif()
endfunction()

tandrel_media_test(mci_contract NODISPLAY
  contract/contract_bench.cpp
  contract/mci_contract_devices_test.cpp
  contract/mci_contract_steps_test.cpp
  contract/mci_contract_text_test.cpp
  contract/mci_contract_transport_test.cpp)

tandrel_media_test(media_screen DISPLAY contract/screen_test.cpp)

tandrel_media_test(media_files NODISPLAY contract/media_files_test.cpp)

# Videos that are more than the machine can do.
tandrel_media_test(ease_screen DISPLAY contract/covered_screen_test.cpp contract/ease_screen_test.cpp)
target_link_libraries(ease_screen PRIVATE PkgConfig::xcb)

tandrel_media_test(mci_unit UNIT
  unit/covered_windows_test.cpp
  unit/load_meter_test.cpp
  unit/load_rules_test.cpp
  unit/mci_early_opens_test.cpp
  unit/mci_outputs_test.cpp
  unit/mci_parser_test.cpp
  unit/mci_service_test.cpp
  unit/mci_tracing_test.cpp)

# Steps: what is kept of pictures, and what the player's own pictures say to that.
tandrel_media_test(steps_kept NODISPLAY
  contract/scrub_test.cpp
  contract/step_cache_test.cpp
  unit/step_budget_test.cpp
  unit/step_row_test.cpp
  unit/step_workers_test.cpp)

target_link_libraries(steps_kept PRIVATE PkgConfig::codecs)

tandrel_media_test(steps_screen DISPLAY contract/scrub_screen_test.cpp contract/steps_screen_test.cpp)

# Small pictures of files.
tandrel_media_test(stills NODISPLAY contract/stills_test.cpp unit/still_cache_test.cpp unit/threaded_stills_test.cpp)
target_link_libraries(stills PRIVATE tandrel_platform_stills PkgConfig::codecs)

# Still pictures that the user keeps.
find_package(Qt6 6.4 REQUIRED COMPONENTS Gui)
add_executable(pictures contract/pictures_test.cpp unit/picture_names_test.cpp)
target_link_libraries(pictures PRIVATE tandrel_media_test_support tandrel_platform_pictures tandrel_platform_stills
                                       tandrel_platform_xdg PkgConfig::codecs Qt6::Gui GTest::gtest tandrel_flags)
add_dependencies(pictures test_media)
add_test(NAME pictures COMMAND pictures)
set_tests_properties(pictures PROPERTIES LABELS unit TIMEOUT 600)

# HD films.
tandrel_media_test(film_player NODISPLAY contract/film_player_test.cpp contract/stock_rest_test.cpp unit/film_moves_test.cpp
                   unit/film_tracks_test.cpp)
tandrel_media_test(film_screen DISPLAY contract/film_screen_test.cpp)

# Settings for pictures and sounds: what libmpv is told of them, what comes out, and what the screen shows.
tandrel_media_test(codec_tuning NODISPLAY contract/codec_sound_test.cpp unit/codec_tuning_test.cpp)
target_link_libraries(codec_tuning PRIVATE GTest::gmock)
set_tests_properties(codec_tuning PROPERTIES ENVIRONMENT
  "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/support/leaks_of_filters.supp")
tandrel_media_test(codec_screen DISPLAY contract/codec_screen_test.cpp)

# The drives for discs.
add_executable(disc_drives unit/disc_drives_test.cpp)
target_include_directories(disc_drives PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(disc_drives PRIVATE tandrel_platform_drives GTest::gtest_main tandrel_flags)
add_test(NAME disc_drives COMMAND ${IN_REAL_TIME} $<TARGET_FILE:disc_drives>)
set_tests_properties(disc_drives PROPERTIES LABELS unit TIMEOUT 300)

add_test(NAME mci_tool COMMAND ${ON_A_DISPLAY} ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/contract/mci_tool_test.py $<TARGET_FILE:tandrel-mci> ${TANDREL_TEST_MEDIA})
set_tests_properties(mci_tool PROPERTIES TIMEOUT 600 LABELS "display;timed")

# With clang the parser is also fed with random texts, for a short while here and as long as one likes by hand.
if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
  add_executable(mci_parser_fuzz ${CMAKE_SOURCE_DIR}/fuzz/mci_parser_fuzz.cpp ${CMAKE_SOURCE_DIR}/src/platform/mci/command_parser.cpp)
  target_include_directories(mci_parser_fuzz PRIVATE ${CMAKE_SOURCE_DIR}/src)
  target_compile_options(mci_parser_fuzz PRIVATE -fsanitize=fuzzer,address,undefined)
  target_link_options(mci_parser_fuzz PRIVATE -fsanitize=fuzzer,address,undefined)
  target_link_libraries(mci_parser_fuzz PRIVATE tandrel_flags)
  add_test(NAME mci_parser_fuzz COMMAND mci_parser_fuzz -runs=300000 -max_len=200
           -dict=${CMAKE_SOURCE_DIR}/fuzz/mci_parser_fuzz.dict)
endif()
