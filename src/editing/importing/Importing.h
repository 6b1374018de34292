#pragma once

namespace tavrix {

class MainViewFrm;

/// Asks for a Targa file and makes its picture the image on show, as an image that has not been saved.
void mnuImportTGA_Click(MainViewFrm& view);
/// The same for a PCX file.
void mnuImportPCX_Click(MainViewFrm& view);
/// Brings the working file of an earlier edit back.
void mnuTempFile_Click(MainViewFrm& view);

}  // namespace tavrix
