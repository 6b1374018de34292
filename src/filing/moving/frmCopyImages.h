#pragma once

#include "filing/moving/ImagesTransferFrm.h"

namespace tavrix {

/// The dialog that copies images to another folder.
class frmCopyImages final : public ImagesTransferFrm {
  public:
    frmCopyImages(forms::Application& application, MainModule& module);
};

}  // namespace tavrix
