#pragma once

#include <string>

namespace tavrix {

class MainViewFrm;

/// The image on show: which file it is, and all that follows from it in the main view: title, menus, recent and favorite
/// files, layout and the place scrolled to. Its path lies in MainModule::CurrentImage, where everybody reads it; who
/// changes it says here what became of the image. None of this asks anything; the hourglass is the caller's.
class ImageOnShow {
  public:
    explicit ImageOnShow(MainViewFrm& view) : view_(view) {}

    // The picture.

    /// Lays the window out for the picture in MainImage, and scrolls to its upper left corner. Messages run.
    void LayOut();
    /// Shows the picture of a file, laid out. Throws RuntimeError where it cannot be loaded, and then the former picture
    /// is on show still. The image is no other file by this.
    void Load(const std::string& path);
    /// There is no image any more: the default picture, laid out, and what Forget does.
    void Lose();
    /// Lose for commands, at once and without a question, with the scratch surface too. Hourglass meanwhile; the frame is
    /// visible afterwards.
    void Clear();

    // The file.

    /// The image is this file from now on, and the title says so. Lists and menus are left to those below.
    void Become(const std::string& path);
    /// It has been opened: first among the recent files unless it is listed, with the menus of an image and no undo.
    void Opened(const std::string& path);
    /// It has been written to another file, which is the image from now on. What undo offers stays.
    void Saved(const std::string& path);
    /// A file has another path, and is the image from now on whether it was before or not. The new path takes the former
    /// one's place among the favorite files, and comes first among the recent ones. An edit that has not been saved and
    /// is left behind so outlives the program.
    void Renamed(const std::string& from, const std::string& to);
    /// A file has gone to another path, one of many perhaps: the image follows if it was that one, the favorite files
    /// too, and the recent files lose it. To be called once the file is no longer at its former path.
    void Moved(const std::string& from, const std::string& to);
    /// The image's file was deleted: Lose, out of sight, under the hourglass.
    void Deleted();
    /// No file: the path is empty, the menus and the title are those without an image.
    void Forget();

    /// The title alone, with the path as it is given.
    void ShowTitleOf(const std::string& path);

  private:
    void ReplaceFavorite(const std::string& from, const std::string& to);

    MainViewFrm& view_;
};

}  // namespace tavrix
