// A folder for one test, deleted when the test ends.
#pragma once

#include <quorkit/values.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace quorkit::test {

class Scratch {
   public:
    Scratch() : folder_(std::filesystem::temp_directory_path() / uniqueName()) {
        std::filesystem::create_directories(folder_);
    }
    ~Scratch() {
        std::error_code ignored;
        std::filesystem::permissions(folder_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(folder_, ignored);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    const std::filesystem::path& folder() const { return folder_; }
    std::filesystem::path path(const std::string& name) const { return folder_ / name; }
    String name(const std::string& name) const { return path(name).u16string(); }

    void write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
    }
    std::string read(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// The number of files in the folder.
    std::size_t count() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(folder_), {}));
    }

   private:
    static std::string uniqueName() {
        std::random_device random;
        return "quorkit-test-" + std::to_string(random()) + std::to_string(random());
    }
    std::filesystem::path folder_;
};

}  // namespace quorkit::test
