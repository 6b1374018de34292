#include "imaging/metafile/PathBracket.h"

namespace tavrix::metafile {

void PathBracket::Continue(const vector::Path& figure) {
    if (!continues_) {
        path_.Append(figure);
        continues_ = true;
        return;
    }
    auto point = figure.Points().begin();
    for (const vector::Path::Verb verb : figure.Verbs()) {
        switch (verb) {
            case vector::Path::Verb::Move:
                if (point != figure.Points().begin()) path_.MoveTo(*point);
                ++point;
                break;
            case vector::Path::Verb::Line:
                path_.LineTo(*point++);
                break;
            case vector::Path::Verb::Cubic:
                path_.CubicTo(point[0], point[1], point[2]);
                point += 3;
                break;
            case vector::Path::Verb::Close:
                path_.Close();
                break;
        }
    }
}

}  // namespace tavrix::metafile
