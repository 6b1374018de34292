#pragma once

namespace tavrix {

class MainViewFrm;

void mnu90CW_Click(MainViewFrm& view);
void mnu90CCW_Click(MainViewFrm& view);
void mnu180Degrees_Click(MainViewFrm& view);

void mnuFlipHorizontal_Click(MainViewFrm& view);
void mnuFlipVertically_Click(MainViewFrm& view);

void mnu25Smaller_Click(MainViewFrm& view);
void mnu25Larger_Click(MainViewFrm& view);
void mnu50Smaller_Click(MainViewFrm& view);
void mnu50Larger_Click(MainViewFrm& view);

}  // namespace tavrix
