#pragma once

#include <cdio/cdio.h>
#include <cdio/logging.h>

#include "backends/linux/LateLibrary.h"

namespace tavrix {

/// What is used of libcdio, under its names. The library is loaded with the object.
struct CdioLibrary {
    CdioLibrary();

    bool loaded = false;  ///< all of the functions are there
    decltype(cdio_log_set_handler)* SetLogHandler = nullptr;
    decltype(cdio_open)* Open = nullptr;
    decltype(cdio_destroy)* Destroy = nullptr;
    decltype(cdio_get_first_track_num)* FirstTrack = nullptr;
    decltype(cdio_get_last_track_num)* LastTrack = nullptr;
    decltype(cdio_get_track_format)* TrackFormat = nullptr;
    decltype(cdio_get_track_lsn)* TrackStart = nullptr;
    decltype(cdio_get_track_last_lsn)* TrackEnd = nullptr;
    decltype(cdio_read_audio_sectors)* ReadAudio = nullptr;
    decltype(cdio_eject_media_drive)* Eject = nullptr;
    decltype(cdio_close_tray)* CloseTray = nullptr;
};

}  // namespace tavrix
