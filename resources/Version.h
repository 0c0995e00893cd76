// What the version resources of the library and of its programs have in common.
// KIV_VERSION_MAJOR, _MINOR and _PATCH come from the project's version in the top CMakeLists.txt.
#pragma once

#define KIV_TEXT_OF(number) #number
#define KIV_VERSION_TEXT_OF(major, minor, patch)                                                             \
    KIV_TEXT_OF(major) "." KIV_TEXT_OF(minor) "." KIV_TEXT_OF(patch)

#define KIV_VERSION_NUMBERS KIV_VERSION_MAJOR, KIV_VERSION_MINOR, KIV_VERSION_PATCH, 0
#define KIV_VERSION_TEXT KIV_VERSION_TEXT_OF(KIV_VERSION_MAJOR, KIV_VERSION_MINOR, KIV_VERSION_PATCH)
#define KIV_COMPANY "KivCtls developers"
#define KIV_COPYRIGHT "Copyright KivCtls developers"
