#pragma once

#include <functional>
#include <string>
#include <vector>

#include "imaging/graphics/Picture.h"
#include "scenes/Scenery.h"

namespace tavrix::scenes {

/// A window of the program as it is to be seen, and how it comes to be.
struct WindowScene {
    std::string name;  ///< of the window; of one of several scenes of it, what is special follows a hyphen
    std::function<forms::Form&(Scenery&)> load;  ///< in a furnished program
    std::string repeated = {};  ///< accelerators that several captions share on purpose: they move among them
    bool layered = false;       ///< what is in it lies one upon the other
    bool placedInTwips = false;  ///< it has its own places for a font of the size that it was designed for
};

/// All windows of the program. A new one joins by a line in the list of its subsystem.
[[nodiscard]] std::vector<WindowScene> EveryWindow();

// The lists that it consists of.
[[nodiscard]] std::vector<WindowScene> ViewerWindows();
[[nodiscard]] std::vector<WindowScene> ListWindows();
[[nodiscard]] std::vector<WindowScene> EditingWindows();
[[nodiscard]] std::vector<WindowScene> FilingWindows();
[[nodiscard]] std::vector<WindowScene> FindingWindows();
[[nodiscard]] std::vector<WindowScene> BrowsingWindows();
[[nodiscard]] std::vector<WindowScene> ShowWindows();
[[nodiscard]] std::vector<WindowScene> SaverWindows();
[[nodiscard]] std::vector<WindowScene> SettingsWindows();

/// Starts the program in a folder of pictures, one of which is on show.
void Furnish(Scenery& scenery);

/// A picture whose corners and middle can be told apart.
[[nodiscard]] Picture TestCard(int width, int height);

/// Puts a test card there, unless there is a picture already.
void PutCard(Scenery& scenery, const std::string& path, int width, int height);

/// Loads a window that needs no more than the shared state, or than the main view.
template <class Form>
forms::Form& OfModule(Scenery& scenery) {
    return scenery.app.Load<Form>(scenery.module);
}
template <class Form>
forms::Form& OfView(Scenery& scenery) {
    return scenery.app.Load<Form>(scenery.View());
}

}  // namespace tavrix::scenes
