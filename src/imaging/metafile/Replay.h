#pragma once

#include "imaging/metafile/DeviceContext.h"
#include "imaging/metafile/Records.h"

/// Each record as the device carries it out, a family a file. May throw std::bad_alloc.
namespace tavrix::metafile {

// ReplayState.cpp
void Replay(DeviceContext& context, const SetValue& record);
void Replay(DeviceContext& context, const SetMiterLimit& record);
void Replay(DeviceContext& context, const SetTextJustification& record);
void Replay(DeviceContext& context, const SetFrame& record);
void Replay(DeviceContext& context, const ScaleExtent& record);
void Replay(DeviceContext& context, const SaveState& record);
void Replay(DeviceContext& context, const RestoreState& record);
void Replay(DeviceContext& context, const SetTransform& record);
void Replay(DeviceContext& context, const ModifyTransform& record);

// ReplayObjects.cpp
void Replay(DeviceContext& context, const CreateObject& record);
void Replay(DeviceContext& context, const SelectObject& record);
void Replay(DeviceContext& context, const DeleteObject& record);
void Replay(DeviceContext& context, const SelectPalette& record);
void Replay(DeviceContext& context, const SetPaletteEntries& record);
void Replay(DeviceContext& context, const ResizePalette& record);

// ReplayLines.cpp
void Replay(DeviceContext& context, const MoveTo& record);
void Replay(DeviceContext& context, const LineTo& record);
void Replay(DeviceContext& context, const PolyShape& record);
void Replay(DeviceContext& context, const PolyPolyShape& record);
void Replay(DeviceContext& context, const PolyDraw& record);

// ReplayBoxes.cpp
void Replay(DeviceContext& context, const BoxShape& record);
void Replay(DeviceContext& context, const RoundBox& record);
void Replay(DeviceContext& context, const ArcShape& record);
void Replay(DeviceContext& context, const AngleArc& record);

// ReplayPixels.cpp
void Replay(DeviceContext& context, const SetPixelColour& record);
void Replay(DeviceContext& context, const FloodFill& record);
void Replay(DeviceContext& context, const GradientFill& record);

// ReplayPaths.cpp
void Replay(DeviceContext& context, const DoPath& record);
void Replay(DeviceContext& context, const SelectClipPath& record);

// ReplayClip.cpp
void Replay(DeviceContext& context, const ClipBox& record);
void Replay(DeviceContext& context, const OffsetClip& record);
void Replay(DeviceContext& context, const ClipRegion& record);
void Replay(DeviceContext& context, const ClipRegionObject& record);
void Replay(DeviceContext& context, const SetMetaRegion& record);
void Replay(DeviceContext& context, const DrawRegion& record);

// ReplayBitmaps.cpp
void Replay(DeviceContext& context, const std::unique_ptr<const Blit>& record);
void Replay(DeviceContext& context, const std::unique_ptr<const Plg>& record);
void Replay(DeviceContext& context, const std::unique_ptr<const DrawDib>& record);

// ReplayText.cpp
void Replay(DeviceContext& context, const std::unique_ptr<const Text>& record);
void Replay(DeviceContext& context, const Texts& record);

}  // namespace tavrix::metafile
