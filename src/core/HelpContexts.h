#pragma once

namespace tavrix::HelpContext {

// The pages of the help file by their numbers, as windows (Form::HelpContext) and boxes name them.

inline constexpr unsigned Contents = 0;
inline constexpr unsigned MainView = 100;
inline constexpr unsigned OpenImage = 110;
inline constexpr unsigned FavoriteFolder = 120;
inline constexpr unsigned QuickFolders = 130;
inline constexpr unsigned ImageInformation = 140;
inline constexpr unsigned RecentFiles = 150;
inline constexpr unsigned StartingTavrix = 160;  ///< the start and the command line
inline constexpr unsigned Settings = 170;
inline constexpr unsigned SaveCopy = 180;
inline constexpr unsigned Export = 190;
inline constexpr unsigned Import = 200;
inline constexpr unsigned Wallpaper = 210;
inline constexpr unsigned NewImage = 240;
inline constexpr unsigned BackgroundColor = 250;
inline constexpr unsigned SlideShowEditor = 320;
inline constexpr unsigned SlideOptions = 340;
inline constexpr unsigned FindSlideShow = 350;
inline constexpr unsigned DeleteSlideShow = 360;
inline constexpr unsigned RenameSlideShow = 370;
inline constexpr unsigned MovedProgram = 410;  ///< moved or newly installed
inline constexpr unsigned FloppyDisks = 660;   ///< images to, from and on floppies
inline constexpr unsigned FloppyToFloppy = 670;
inline constexpr unsigned RotateImage = 1190;
inline constexpr unsigned ResizeImage = 1240;
inline constexpr unsigned CropImage = 1310;
inline constexpr unsigned DisplayColours = 1320;
inline constexpr unsigned LoadShow = 1360;
inline constexpr unsigned SaveShow = 1370;
inline constexpr unsigned SlideDescriptions = 1380;
inline constexpr unsigned AnimatedGif = 1330;  ///< a GIF that is not animated
inline constexpr unsigned SlideDuplicates = 1390;
inline constexpr unsigned SlideCopyImages = 1400;

}  // namespace tavrix::HelpContext
