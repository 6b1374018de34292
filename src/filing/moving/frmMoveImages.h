#pragma once

#include "filing/moving/ImagesTransferFrm.h"

namespace tavrix {

/// The dialog that moves images to another folder.
class frmMoveImages final : public ImagesTransferFrm {
  public:
    frmMoveImages(forms::Application& application, MainModule& module);
};

}  // namespace tavrix
