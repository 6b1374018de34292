#include "backends/linux/CdioLibrary.h"

#include "backends/linux/LateLibraryNames.h"

namespace tavrix {

CdioLibrary::CdioLibrary() {
    const LateLibrary library(CdioLibraryName);
    loaded = library.Find("cdio_log_set_handler", SetLogHandler) && library.Find("cdio_open", Open) &&
             library.Find("cdio_destroy", Destroy) && library.Find("cdio_get_first_track_num", FirstTrack) &&
             library.Find("cdio_get_last_track_num", LastTrack) &&
             library.Find("cdio_get_track_format", TrackFormat) &&
             library.Find("cdio_get_track_lsn", TrackStart) &&
             library.Find("cdio_get_track_last_lsn", TrackEnd) &&
             library.Find("cdio_read_audio_sectors", ReadAudio) &&
             library.Find("cdio_eject_media_drive", Eject) && library.Find("cdio_close_tray", CloseTray);
    // Otherwise it writes to the terminal, and ends the process where it finds itself in the wrong.
    if (loaded) SetLogHandler([](cdio_log_level_t, const char*) {});
}

}  // namespace tavrix
