# Discs: what they say of themselves, and playing them.
tandrel_library(platform/disc USES platform LINKS PkgConfig::dvdread Threads::Threads ${CMAKE_DL_LIBS} SOURCES
  disc_look.cpp
  disc_reading.cpp
  facts_text.cpp
  probing.cpp)
target_link_libraries(tandrel_platform_disc PUBLIC PkgConfig::dvdread)

tandrel_library(platform/vlc USES platform platform/disc platform/output LINKS PkgConfig::vlc PkgConfig::xcb Threads::Threads SOURCES
  disc_clock.cpp
  disc_menus.cpp
  disc_moves.cpp
  disc_session.cpp
  disc_worker.cpp
  menu_pointer.cpp
  vlc_disc_player.cpp
  vlc_film.cpp
  vlc_tracks.cpp)
target_link_libraries(tandrel_platform_vlc PUBLIC PkgConfig::vlc PkgConfig::xcb)
