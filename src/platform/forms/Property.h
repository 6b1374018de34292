#pragma once

#include <concepts>
#include <utility>

namespace tavrix::forms {

/// Base of all that carries properties: forms, controls, menus, timers, the screen.
class FormObject {
  public:
    FormObject() = default;
    FormObject(const FormObject&) = delete;
    FormObject& operator=(const FormObject&) = delete;

  protected:
    ~FormObject() = default;
};

/// A value of a form object that is assigned like a variable. The owner decides what an assignment does: keep the
/// value, tell the peer, raise an event. Reading never asks the window system.
template <class T>
class Property {
  public:
    template <class Owner>
    Property(Owner* owner, void (Owner::*assign)(const T&), T initial = T())
        : owner_(owner), assign_(static_cast<Assign>(assign)), value_(std::move(initial)) {}

    Property(const Property&) = delete;

    Property& operator=(const T& value) {
        (owner_->*assign_)(value);
        return *this;
    }
    Property& operator=(const Property& other) { return *this = other.value_; }

    operator const T&() const {
        return value_;
    }  // NOLINT(google-explicit-constructor): it reads like a variable
    [[nodiscard]] const T& Get() const { return value_; }

    /// For the owner: keeps a value without further effect and tells whether it is a new one.
    bool Store(const T& value) {
        if (value_ == value) return false;
        value_ = value;
        return true;
    }

    friend bool operator==(const Property& a, const T& b) { return a.value_ == b; }

  private:
    using Assign = void (FormObject::*)(const T&);

    FormObject* owner_;
    Assign assign_;
    T value_;
};

}  // namespace tavrix::forms
