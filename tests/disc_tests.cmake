# Discs: looking at them, and playing them on a screen.

set(TANDREL_TEST_DISC ${CMAKE_BINARY_DIR}/test_disc)
tandrel_made_media(test_disc test_disc ${CMAKE_CURRENT_SOURCE_DIR}/support/make_test_disc.py "a test disc"
                   ${CMAKE_CURRENT_SOURCE_DIR}/support/make_test_media.py)

# tandrel_disc_test(NAME DISPLAY|NODISPLAY source...)
function(tandrel_disc_test name display)
  tandrel_media_test(${name} ${display} ${ARGN})
  add_dependencies(${name} test_disc)
  target_compile_definitions(${name} PRIVATE TANDREL_TEST_DISC="${TANDREL_TEST_DISC}")
  target_link_libraries(${name} PRIVATE tandrel_platform_vlc tandrel_platform_disc)
endfunction()

tandrel_disc_test(disc_look NODISPLAY contract/disc_look_test.cpp)
tandrel_disc_test(disc_menus DISPLAY contract/disc_menu_test.cpp)
tandrel_disc_test(disc_playing DISPLAY contract/disc_playing_test.cpp)
tandrel_disc_test(disc_troubles DISPLAY contract/disc_trouble_test.cpp)

# With clang, discs with damaged tables as well, for a short while here and as long as one likes by hand.
if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
  file(GLOB disc_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/platform/disc/*.cpp)
  add_executable(disc_look_fuzz ${CMAKE_SOURCE_DIR}/fuzz/disc_look_fuzz.cpp ${disc_sources})
  add_dependencies(disc_look_fuzz test_disc)
  target_include_directories(disc_look_fuzz PRIVATE ${CMAKE_SOURCE_DIR}/src)
  target_compile_definitions(disc_look_fuzz PRIVATE TANDREL_TEST_DISC="${TANDREL_TEST_DISC}")
  target_compile_options(disc_look_fuzz PRIVATE -fsanitize=fuzzer,address,undefined)
  target_link_options(disc_look_fuzz PRIVATE -fsanitize=fuzzer,address,undefined)
  target_link_libraries(disc_look_fuzz PRIVATE tandrel_flags PkgConfig::dvdread)
  # The children leave what has ended them as well; only a failure of the test itself counts.
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/disc_look_fuzz)
  add_test(NAME disc_look_fuzz COMMAND disc_look_fuzz -runs=3000 -max_len=100
           -artifact_prefix=${CMAKE_BINARY_DIR}/disc_look_fuzz/)
endif()
