#pragma once

namespace tavrix {

/// From here on, a write beyond the size that the system lets files of this process have fails as on a full disk. Without
/// it the process would end there, with all that the user has not saved.
void SurviveSizeLimit();

}  // namespace tavrix
