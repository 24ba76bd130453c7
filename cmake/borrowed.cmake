# What a build for another system takes of the system that it is built on: libraries that are headers
# only, each by a link of its own, as the rest of that folder is for another system; and GoogleTest,
# which Debian has in source.
set(BORROWED ${CMAKE_BINARY_DIR}/borrowed)
foreach(library CLI rapidjson)
    find_path(${library}_PARENT ${library} PATHS /usr/include NO_DEFAULT_PATH
        NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    file(MAKE_DIRECTORY ${BORROWED})
    file(CREATE_LINK ${${library}_PARENT}/${library} ${BORROWED}/${library} SYMBOLIC)
endforeach()
add_library(CLI11::CLI11 INTERFACE IMPORTED GLOBAL)
set_target_properties(CLI11::CLI11 PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${BORROWED})
set(RAPIDJSON_INCLUDE ${BORROWED})
if(BUILD_TESTING)
    find_path(GOOGLETEST CMakeLists.txt PATHS /usr/src/googletest NO_DEFAULT_PATH
        NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    set(BUILD_GMOCK OFF)
    set(INSTALL_GTEST OFF)
    add_subdirectory(${GOOGLETEST} googletest EXCLUDE_FROM_ALL)
endif()
