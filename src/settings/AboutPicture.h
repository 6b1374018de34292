#pragma once

#include "imaging/graphics/Surface.h"

namespace tavrix {

/// The moments of the picture in the about box.
struct AboutMoment {
    double day = 0;    ///< of the day, from one midnight, 0, to the next, 1
    double trip = 0;   ///< of the boat's trip, from the left, 0, to the right, 1
    double swell = 0;  ///< of the sea, in seconds
};

/// Draws a sailing boat on the sea, as large as the surface is.
void DrawAboutPicture(Surface& surface, const AboutMoment& moment);

}  // namespace tavrix
