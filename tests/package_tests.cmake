# What is installed, and the Debian package: made, looked at, and tried in a fresh system.
set(packaging ${CMAKE_SOURCE_DIR}/packaging)
add_test(NAME package COMMAND ${Python3_EXECUTABLE} ${packaging}/test_package ${CMAKE_BINARY_DIR} -v)
add_test(NAME package_installed COMMAND ${Python3_EXECUTABLE} ${packaging}/installed_test.py ${CMAKE_BINARY_DIR}
                                        ${TANDREL_TEST_MEDIA} -v)
add_test(NAME package_flatpak COMMAND ${Python3_EXECUTABLE} ${packaging}/flatpak/check_manifest.py)
set_tests_properties(package package_installed package_flatpak PROPERTIES LABELS package TIMEOUT 1500)
