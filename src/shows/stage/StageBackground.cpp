#include "shows/stage/StageBackground.h"

namespace tavrix {

Colour StageBackground(int setting) {
    switch (setting) {
        case 0:
            return Black;
        case 1:
            return White;
        case 2:
            return ButtonFace;
        case 3:
            return Colour{0x400000};
        case 4:
            return Colour{0x000040};
        default:
            return Colour{0x404040};
    }
}

}  // namespace tavrix
