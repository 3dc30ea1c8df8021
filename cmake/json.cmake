# The target nlohmann_json::nlohmann_json, for the hosts that speak JSON.
if(NOT CMAKE_CROSSCOMPILING)
  find_package(nlohmann_json 3.10 REQUIRED)
  return()
endif()

# It is headers only, so this machine's copy serves. Its folder must not come with it: the rest of
# it belongs to another system. A link that stands alone leads to the headers.
find_path(QUORKIT_JSON_HEADERS nlohmann/json.hpp NO_CMAKE_FIND_ROOT_PATH PATHS /usr/include REQUIRED)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/json)
file(CREATE_LINK ${QUORKIT_JSON_HEADERS}/nlohmann ${PROJECT_BINARY_DIR}/json/nlohmann SYMBOLIC)
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED)
target_include_directories(nlohmann_json::nlohmann_json SYSTEM INTERFACE ${PROJECT_BINARY_DIR}/json)
