#include "browsing/ThumbnailPages.h"

namespace tavrix {

int ThumbnailPages::Next(int count) {
    if (ThumbLastShown >= count - 1) ThumbLastShown = 0;
    return ThumbLastShown;
}

int ThumbnailPages::Previous(int count, int visible) const {
    if (ThumbLastShown < Slots + 1) return count - Slots;
    if (ThumbLastShown < 2 * Slots) return 0;
    return ThumbLastShown - (visible + Slots);
}

int ThumbnailPages::Forward1(int count) {
    if (ThumbLastShown >= count) {
        ThumbLastShown = 0;
        return 0;
    }
    return ThumbLastShown - (Slots - 1);
}

int ThumbnailPages::Back1(int count) {
    if (ThumbLastShown > Slots) return ThumbLastShown - (Slots + 1);
    ThumbLastShown = count - Slots;
    return ThumbLastShown;
}

void ThumbnailPages::Made(int reached, int count) {
    ThumbLastShown = reached < count - 1 ? reached + 1 : count;
}

int ThumbnailPages::IndexOf(int slot, int visible) const {
    return ThumbLastShown >= Slots ? slot + ThumbLastShown - visible : slot;
}

}  // namespace tavrix
