# The services that the program takes from the system: rules by themselves, and what the X server and the session bus do.

set(KEPT_BY_LIBRARIES "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/support/leaks.supp")
set(ON_THE_DISPLAY "QT_QPA_PLATFORM=xcb;QT_NO_GLIB=1;${KEPT_BY_LIBRARIES}")

add_executable(platform_unit unit/idle_hold_test.cpp unit/key_combination_test.cpp unit/mpris_properties_test.cpp)
target_link_libraries(platform_unit PRIVATE tandrel_platform_dbus tandrel_platform_x11 tandrel_flags GTest::gmock_main)
add_test(NAME platform_unit COMMAND platform_unit)
set_tests_properties(platform_unit PROPERTIES LABELS unit TIMEOUT 300)

add_executable(platform_display platform/desktop_screen_saver_test.cpp platform/display_main.cpp
                                platform/hot_keys_test.cpp platform/monitor_source_test.cpp
                                platform/pointer_test.cpp)
target_link_libraries(platform_display PRIVATE tandrel_platform_dbus tandrel_platform_x11 tandrel_flags Qt6::DBus
                                               Qt6::Gui PkgConfig::xcb GTest::gmock)
add_test(NAME platform_display COMMAND xvfb-run -a -s "-screen 0 640x480x24 -noreset"
         ${IN_REAL_TIME} $<TARGET_FILE:platform_display>)
set_tests_properties(platform_display PROPERTIES LABELS "display;timed" TIMEOUT 900 ENVIRONMENT "${ON_THE_DISPLAY}")

# Other programs that command the player, by a client of the test's own on buses of its own.
add_executable(mpris_bus platform/mpris_alone_test.cpp platform/mpris_test.cpp)
target_link_libraries(mpris_bus PRIVATE tandrel_platform_dbus tandrel_flags Qt6::Core PkgConfig::dbus GTest::gmock)
add_test(NAME mpris_bus COMMAND mpris_bus)
set_tests_properties(mpris_bus PROPERTIES LABELS unit TIMEOUT 600 ENVIRONMENT "QT_NO_GLIB=1;${KEPT_BY_LIBRARIES}")

# The desktop's dialog for files, which the test itself plays on a bus of its own.
add_executable(portal_dialog platform/portal_file_dialog_test.cpp)
target_link_libraries(portal_dialog PRIVATE tandrel_toolkit_qt tandrel_flags Qt6::DBus Qt6::Widgets GTest::gmock)
target_include_directories(portal_dialog PRIVATE support)
add_test(NAME portal_dialog COMMAND portal_dialog)
add_test(NAME portal_dialog_display COMMAND xvfb-run -a -s "-screen 0 800x600x24 -noreset"
         ${IN_REAL_TIME} $<TARGET_FILE:portal_dialog>)
set_tests_properties(portal_dialog_display PROPERTIES LABELS "display;timed" TIMEOUT 600 ENVIRONMENT "${ON_THE_DISPLAY}")
set_tests_properties(portal_dialog PROPERTIES LABELS ui TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_NO_GLIB=1;${KEPT_BY_LIBRARIES}")

# The dialog for pictures and sounds: its controls, its window as others use it, and what starts it.
add_executable(codec_settings_ui ui/main.cpp ui/codec/settings_window_test.cpp)
target_include_directories(codec_settings_ui PRIVATE support)
target_link_libraries(codec_settings_ui PRIVATE tandrel_codec_settings tandrel_flags Qt6::Test Qt6::Widgets GTest::gmock)
add_test(NAME codec_settings_ui COMMAND codec_settings_ui)
set_tests_properties(codec_settings_ui PROPERTIES LABELS ui TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;${KEPT_BY_LIBRARIES}")

tandrel_media_test(codec_window DISPLAY contract/codec_window_test.cpp)
target_compile_definitions(codec_window PRIVATE TANDREL_SYSTEM_FOLDER="${CMAKE_BINARY_DIR}/lib/tandrel-player")
add_dependencies(codec_window tandrel-codec-settings codec-launcher)

add_library(codec_module MODULE support/codec_module.cpp)
add_test(NAME codec_launcher COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/contract/codec_launcher_test.py
         $<TARGET_FILE:codec-launcher> $<TARGET_FILE:codec_module>)
set_tests_properties(codec_launcher PROPERTIES TIMEOUT 300)
