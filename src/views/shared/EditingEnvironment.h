// SPDX-License-Identifier: MIT
//
// What the sheets use that edit and capture workspaces. Main thread.
#pragma once

#include "views/shared/ViewEnvironment.h"

namespace trovell {

class AccessibilityPermissionManager;
class ResourceSystem;
class StoreContext;
class WindowCaptureService;

struct EditingEnvironment : ViewEnvironment {
    StoreContext& context;
    AccessibilityPermissionManager& accessibility;
    WindowCaptureService& windowCapture;
    ResourceSystem& resources;
};

} // namespace trovell
