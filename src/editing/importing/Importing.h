#pragma once

#include <string>

#include "viewer/Opening.h"

namespace tavrix {

class MainViewFrm;

/// Asks for a Targa file and makes its picture the image on show, as an image that has not been saved.
void mnuImportTGA_Click(MainViewFrm& view);
/// The same for a PCX file.
void mnuImportPCX_Click(MainViewFrm& view);
/// Makes a file of these kinds the image on show, as LoadIntoMainView does with others: as an image that has not been
/// saved. A failure to read it has the caller's words.
void ImportIntoMainView(MainViewFrm& view, const std::string& path, const OpenFailure& failure);
/// Brings the working file of an earlier edit back.
void mnuTempFile_Click(MainViewFrm& view);

}  // namespace tavrix
