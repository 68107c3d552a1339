// SPDX-License-Identifier: MIT

#include "platform/BackEnds.h"

#include "platform/freedesktop/FreedesktopAdapters.h"
#include "platform/null/NullBackEnd.h"
#include "platform/sway/SwayBackEnd.h"
#include "platform/x11/X11BackEnd.h"

#include <algorithm>
#include <array>

namespace trovell {

namespace {

constexpr std::array backEnds{
    BackEnd{"sway", &isSwaySession, &makeDBusActivation, &makeSwayAdapters},
    BackEnd{"i3", &isI3Session, &makeDBusActivation, &makeI3Adapters},
    BackEnd{"x11", &isX11Session, &makeDBusActivation, &makeX11Adapters},
    BackEnd{"null", &isAnySession, &makeDBusActivation, &makeNullAdapters},
};

} // namespace

const BackEnd& backEndFor(const SessionFacts& session)
{
    return *std::ranges::find_if(backEnds, [&](const BackEnd& each) { return each.fits(session); });
}

} // namespace trovell
