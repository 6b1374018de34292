#pragma once

namespace tavrix {

class MainViewFrm;

/// Turns the picture of PictureTemp about its centre into MainImage, which has its final size and background. The
/// image is refreshed now and then, so that it is seen to arrive, and messages run; a turn by quarters arrives whole, and
/// is painted once. `angle` is in radians, positive
/// counter-clockwise. Throws RuntimeError 6 as RotatePicture, and 481 without a picture.
void RotateMainImage(MainViewFrm& view, float angle);

/// Gives MainImage the size in twips that a turned picture needs, laid out before it arrives.
void MakeRoomForTurn(MainViewFrm& view, float width, float height);

}  // namespace tavrix
