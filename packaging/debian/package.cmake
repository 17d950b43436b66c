# The Debian package: `cpack -G DEB` in the folder of the build.
set(debian ${CMAKE_CURRENT_SOURCE_DIR}/debian)
set(release 1)

file(STRINGS ${debian}/changelog newest LIMIT_COUNT 1)
string(FIND "${newest}" "tandrel-player (${PROJECT_VERSION}-${release}) " at)
if(NOT at EQUAL 0)
  message(FATAL_ERROR "packaging/debian/changelog begins with another version than ${PROJECT_VERSION}-${release}")
endif()

# What is Debian's only, and not a part of other installations.
set(only_debian COMPONENT debian EXCLUDE_FROM_ALL)
tandrel_compressed(${debian}/changelog ${CMAKE_INSTALL_DOCDIR} changelog.Debian ${only_debian})
install(FILES ${debian}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR} ${only_debian})
install(FILES ${debian}/lintian-overrides DESTINATION share/lintian/overrides RENAME tandrel-player ${only_debian})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tandrel-player)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_CMAKE_PROJECTS ${CMAKE_BINARY_DIR} tandrel-player Unspecified /
                                 ${CMAKE_BINARY_DIR} tandrel-player debian /)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${release})
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Tandrel Player developers <tandrel-player@example.org>")
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "player that shows up to twelve videos at once
Each video stands in a window of its own, and one console drives them all: as
a grid in which they play together, or as a list with one large picture and
the others waiting beside it. Steps by single frames, jumps, volumes and
starts work on one video or on the whole group.
.
HD films in Matroska files and DVDs with their menus play in windows of their
own kind, from a drive, an image or a folder. The console speaks English,
Spanish, French, Italian, German and Portuguese, and can be worked by mouse or
by keys alone.
.
Also in the package are tandrel-open, which hands files to the player that is
running, and tandrel-mci, which plays by media commands from standard input.")

# What programs are linked to is found; what they load or start while they run is told here.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Discs are read, decoded and shown by plugins.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "vlc-plugin-base, vlc-plugin-video-output")
# The type that the console is drawn for; links to the web; how a program becomes the first choice for files; the
# desktop's dialog for files and its screen saver. All of them may be missing.
set(recommended fonts-inter xdg-utils desktop-file-utils shared-mime-info "default-dbus-session-bus | dbus-session-bus")
list(JOIN recommended ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "xdg-desktop-portal")

include(CPack)
