#include "imaging/vector/Path.h"

#include <algorithm>

namespace tavrix::vector {

void Path::MoveTo(Point point) {
    if (!RoomFor(1)) return;
    start_ = current_ = Tamed(point);
    // Of several moves in a row only the last one counts.
    if (!verbs_.empty() && verbs_.back() == Verb::Move) {
        points_.back() = current_;
    } else {
        verbs_.push_back(Verb::Move);
        points_.push_back(current_);
    }
    open_ = true;
}

void Path::BeginIfNeeded() {
    if (!open_) MoveTo(current_);
}

void Path::LineTo(Point point) {
    if (!RoomFor(2)) return;
    BeginIfNeeded();
    current_ = Tamed(point);
    verbs_.push_back(Verb::Line);
    points_.push_back(current_);
}

void Path::CubicTo(Point control1, Point control2, Point end) {
    if (!RoomFor(4)) return;
    BeginIfNeeded();
    current_ = Tamed(end);
    verbs_.push_back(Verb::Cubic);
    points_.push_back(Tamed(control1));
    points_.push_back(Tamed(control2));
    points_.push_back(current_);
}

void Path::Close() {
    if (!open_) return;
    verbs_.push_back(Verb::Close);
    current_ = start_;
    open_ = false;
}

void Path::AddPolygon(std::span<const Point> points) {
    if (points.empty()) return;
    AddPolyline(points);
    Close();
}

void Path::AddPolyline(std::span<const Point> points) {
    if (points.empty()) return;
    MoveTo(points.front());
    for (const Point point : points.subspan(1))
        LineTo(point);
}

void Path::AddBox(const Box& box) {
    const Box b = Tamed(box);
    MoveTo({b.left, b.top});
    LineTo({b.right, b.top});
    LineTo({b.right, b.bottom});
    LineTo({b.left, b.bottom});
    Close();
}

void Path::Append(const Path& other) {
    if (other.Empty() || !RoomFor(other.points_.size())) return;
    verbs_.insert(verbs_.end(), other.verbs_.begin(), other.verbs_.end());
    points_.insert(points_.end(), other.points_.begin(), other.points_.end());
    start_ = other.start_;
    current_ = other.current_;
    open_ = other.open_;
}

void Path::Clear() {
    *this = Path();
}

Path Path::Transformed(const Affine& map) const {
    Path result = *this;
    for (Point& point : result.points_)
        point = Tamed(map.Apply(point));
    result.start_ = Tamed(map.Apply(start_));
    result.current_ = Tamed(map.Apply(current_));
    return result;
}

Path Path::Reversed() const {
    Path result;
    std::size_t point = 0;
    for (std::size_t verb = 0; verb < verbs_.size();) {
        // From a move to the next one.
        ++point;
        const std::size_t firstVerb = ++verb;
        bool closed = false;
        for (; verb < verbs_.size() && verbs_[verb] != Verb::Move; ++verb) {
            closed = closed || verbs_[verb] == Verb::Close;
            if (verbs_[verb] != Verb::Close) point += verbs_[verb] == Verb::Cubic ? 3 : 1;
        }
        std::size_t at = point - 1;
        result.MoveTo(points_[at]);
        for (std::size_t step = verb; step-- > firstVerb;) {
            if (verbs_[step] == Verb::Close) continue;
            if (verbs_[step] == Verb::Cubic) {
                result.CubicTo(points_[at - 1], points_[at - 2], points_[at - 3]);
                at -= 3;
            } else {
                result.LineTo(points_[--at]);
            }
        }
        if (closed) result.Close();
    }
    return result;
}

Box Path::Bounds() const {
    if (points_.empty()) return {};
    Box box{points_[0].x, points_[0].y, points_[0].x, points_[0].y};
    for (const Point point : points_) {
        box.left = std::min(box.left, point.x);
        box.top = std::min(box.top, point.y);
        box.right = std::max(box.right, point.x);
        box.bottom = std::max(box.bottom, point.y);
    }
    return box;
}

}  // namespace tavrix::vector
