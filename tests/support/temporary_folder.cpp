#include "support/temporary_folder.h"

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <system_error>

namespace mac_model {

TemporaryFolder::TemporaryFolder() {
    auto pattern = (std::filesystem::temp_directory_path() / "tavrin-test-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder can be made");
    path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

} // namespace mac_model
