// SPDX-License-Identifier: MIT
//
// Every program that links this sees the same world, however it is started: no variable,
// application, font, theme, locale or time zone of the machine, and a home where nothing can be
// written. What a test needs beyond that it makes itself.

#include <cstdlib>
#include <string_view>
#include <vector>

#include <unistd.h>

namespace {

/// What programs are found by, and what sanitizers, Qt Test and this project's tools are told.
bool isKept(std::string_view variable)
{
    for (const std::string_view name : {"PATH=", "TMPDIR=", "LD_PRELOAD=", "QTEST_", "TROVELL_"})
        if (variable.starts_with(name))
            return true;
    return variable.substr(0, variable.find('=')).ends_with("SAN_OPTIONS");
}

} // namespace

/// Named by the linker, which would leave it out; before main, since libraries read some variables
/// when they start.
extern "C" [[gnu::constructor]] void enterTestWorld()
{
    // A program that a test starts again, itself for instance, has the world that the test gave it.
    constexpr const char* mark = "TROVELL_IN_TEST_WORLD";
    if (getenv(mark))
        return;
    std::vector<char*> kept;
    for (char** variable = environ; *variable; ++variable) {
        if (isKept(*variable))
            kept.push_back(*variable);
    }
    clearenv();
    for (char* variable : kept)
        putenv(variable);
    setenv(mark, "1", 1);
    setenv("HOME", "/dev/null", 1);
    setenv("XDG_DATA_DIRS", TROVELL_TEST_WORLD "/share", 1);
    setenv("XDG_CONFIG_DIRS", TROVELL_TEST_WORLD "/xdg", 1);
    setenv("FONTCONFIG_FILE", TROVELL_TEST_WORLD "/fonts.conf", 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    setenv("TZ", "UTC", 1);
}
