#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>

#include "support/ErrorOfCall.h"

namespace tavrix {

/// A folder of a test's own, gone at its end.
class TestFolder {
  public:
    TestFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "tavrix-test-XXXXXX").string();
        path_ = std::filesystem::canonical(::mkdtemp(name.data())).string();
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }

    [[nodiscard]] const std::string& Path() const { return path_; }
    /// The host path of something in it.
    [[nodiscard]] std::string At(const std::string& name) const { return path_ + "/" + name; }

    void Put(const std::string& name, const std::string& content) const {
        std::filesystem::create_directories(std::filesystem::path(At(name)).parent_path());
        std::ofstream(At(name), std::ios::binary) << content;
    }
    void PutFolder(const std::string& name) const { std::filesystem::create_directories(At(name)); }
    [[nodiscard]] std::string Content(const std::string& name) const {
        // In blocks: sanitizers make each character that is read by itself a long way.
        std::ifstream file(At(name), std::ios::binary);
        std::ostringstream content;
        content << file.rdbuf();
        return std::move(content).str();
    }
    [[nodiscard]] bool Has(const std::string& name) const { return std::filesystem::exists(At(name)); }

  private:
    std::string path_;
};

/// Sets an environment variable for the life of the object.
class ScopedVariable {
  public:
    ScopedVariable(const char* name, const std::string& value) : name_(name) {
        if (const char* former = std::getenv(name)) {
            former_ = former;
            wasSet_ = true;
        }
        ::setenv(name, value.c_str(), 1);
    }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;
    ~ScopedVariable() {
        if (wasSet_) {
            ::setenv(name_, former_.c_str(), 1);
        } else {
            ::unsetenv(name_);
        }
    }

  private:
    const char* name_;
    std::string former_;
    bool wasSet_ = false;
};

}  // namespace tavrix
