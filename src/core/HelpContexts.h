#pragma once

namespace tavrix::HelpContext {

// The pages of the help file by their numbers, as windows (Form::HelpContext) and boxes name them.

inline constexpr unsigned Contents = 0;
inline constexpr unsigned GettingStarted = 10;
inline constexpr unsigned CreateShow = 20;  ///< how to create a slide show
inline constexpr unsigned Questions = 30;   ///< frequently asked questions
inline constexpr unsigned Search = 40;  ///< how to search; the help window is ready to when it turns to it
inline constexpr unsigned MainView = 100;
inline constexpr unsigned OpenImage = 110;
inline constexpr unsigned FavoriteFiles = 115;
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
inline constexpr unsigned SaverSettings = 310;
inline constexpr unsigned SlideShowEditor = 320;
inline constexpr unsigned SlideOptions = 340;
inline constexpr unsigned FindSlideShow = 350;
inline constexpr unsigned DeleteSlideShow = 360;
inline constexpr unsigned RenameSlideShow = 370;
inline constexpr unsigned CopyMoveImages = 640;
inline constexpr unsigned MoveCurrentImage = 650;
inline constexpr unsigned DeleteImages = 690;
inline constexpr unsigned DeleteFolder = 710;
inline constexpr unsigned RenameImages = 780;
inline constexpr unsigned Preferences = 260;
inline constexpr unsigned AdvancedSettings = 270;
inline constexpr unsigned TipOfTheDay = 280;
inline constexpr unsigned About = 290;
inline constexpr unsigned SystemInformation = 330;
inline constexpr unsigned MovedProgram = 410;  ///< moved or newly installed
inline constexpr unsigned FindImages = 570;
inline constexpr unsigned DuplicateFiles = 1060;
inline constexpr unsigned FloppyDisks = 660;  ///< images to, from and on floppies
inline constexpr unsigned FloppyToFloppy = 670;
inline constexpr unsigned RotateImage = 1190;
inline constexpr unsigned ResizeImage = 1240;
inline constexpr unsigned Thumbnails = 1250;   ///< the browser itself
inline constexpr unsigned ThumbFolder = 1260;  ///< its dialog for a folder
inline constexpr unsigned ThumbSelect = 1270;  ///< its dialog for files
inline constexpr unsigned CropImage = 1310;
inline constexpr unsigned DisplayColours = 1320;
inline constexpr unsigned LoadShow = 1360;
inline constexpr unsigned SaveShow = 1370;
inline constexpr unsigned SlideDescriptions = 1380;
inline constexpr unsigned AnimatedGif = 1330;  ///< a GIF that is not animated
inline constexpr unsigned SlideDuplicates = 1390;
inline constexpr unsigned SlideCopyImages = 1400;
inline constexpr unsigned PackageShow = 1410;
inline constexpr unsigned DeletePackage = 1420;

}  // namespace tavrix::HelpContext
