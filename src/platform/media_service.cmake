tandrel_library(platform/mci USES platform LINKS Threads::Threads SOURCES
  command_parser.cpp
  device.cpp
  drive_door.cpp
  mci_service.cpp
  tracing_mci.cpp)

# What players of all kinds put their pictures and sounds out with.
tandrel_library(platform/output USES platform LINKS PkgConfig::xcb PkgConfig::x11 Threads::Threads ${CMAKE_DL_LIBS} SOURCES
  covered_windows.cpp
  picture_window.cpp
  sound_outputs.cpp
  x_errors.cpp)
target_link_libraries(tandrel_platform_output PUBLIC PkgConfig::xcb)

tandrel_library(platform/drives USES platform/mci LINKS Threads::Threads SOURCES
  disc_drives.cpp
  drive_search.cpp
  volume_name.cpp)

# One file as the demuxer's library reads it.
tandrel_library(platform/input LINKS PkgConfig::codecs SOURCES av_handles.cpp key_places.cpp media_input.cpp)

# The X headers that some of its sources include take common words as macros.
tandrel_library(platform/mpv APART USES platform/input platform/mci platform/output platform/codec LINKS PkgConfig::mpv PkgConfig::codecs PkgConfig::xcb PkgConfig::x11 Threads::Threads
                             ${CMAKE_DL_LIBS} SOURCES
  codec_tuning.cpp
  early_opens.cpp
  film_moves.cpp
  film_means.cpp
  film_player.cpp
  film_requests.cpp
  film_screen.cpp
  film_tracks.cpp
  film_worker.cpp
  gop_reader.cpp
  graphics_probe.cpp
  input_methods.cpp
  key_watch.cpp
  load_keeper.cpp
  load_meter.cpp
  load_rules.cpp
  media_path.cpp
  media_tracks.cpp
  mpv_channel.cpp
  mpv_device.cpp
  mpv_drawing.cpp
  mpv_easing.cpp
  mpv_engine.cpp
  mpv_handle.cpp
  mpv_loading.cpp
  mpv_moves.cpp
  mpv_scrub.cpp
  mpv_stills.cpp
  node_fields.cpp
  output_choice.cpp
  process_state.cpp
  scrub.cpp
  step_budget.cpp
  step_cache.cpp
  step_fill.cpp
  picture_shrink.cpp
  step_picture.cpp
  step_row.cpp
  step_stills.cpp
  step_workers.cpp
  stock_rest.cpp
  still_watch.cpp
  still_window.cpp)
# The headers of this folder name libmpv's and xcb's types.
target_link_libraries(tandrel_platform_mpv PUBLIC PkgConfig::mpv PkgConfig::xcb)

add_executable(tandrel-mci platform/mci_tool/main.cpp platform/mci_tool/tool_window.cpp)
target_compile_definitions(tandrel-mci PRIVATE TANDREL_VERSION="${PROJECT_VERSION}")
target_link_libraries(tandrel-mci PRIVATE tandrel_platform_mpv tandrel_flags)
