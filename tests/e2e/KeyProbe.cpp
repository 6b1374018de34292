// A window that writes the code of each key that goes down in it, one a line, until it is killed.

#include <iostream>

#include "backends/qt/QtProcess.h"
#include "backends/qt/QtToolkit.h"
#include "platform/forms/Application.h"

namespace tavrix {
namespace {

class KeyForm final : public forms::Form {
  public:
    explicit KeyForm(forms::Application& application)
        : Form(application, {.name = "KeyForm", .resizable = true}) {
        Caption = "Keys";
        KeyPreview = true;
        Move(0, 0, 4500, 3000);
    }
    void Form_KeyDown(int& keyCode, int) override { std::cout << keyCode << std::endl; }
};

}  // namespace
}  // namespace tavrix

int main(int, char** argv) {
    const tavrix::qt::QtProcess windowSystem(argv[0]);
    tavrix::qt::QtToolkit toolkit([](const std::string& path) { return path; });
    tavrix::forms::Application app(toolkit);
    app.Load<tavrix::KeyForm>().Show();
    std::cout << "ready" << std::endl;
    toolkit.RunUntil([] { return false; });
}
