// Everything that a host needs of Gesso.
#pragma once

#include <gesso/controls/GButton.h>
#include <gesso/controls/GLabel.h>
#include <gesso/framework/GWindow2.h>
#include <gesso/framework/GWnd.h>
#include <gesso/framework/Library.h>
#include <gesso/list/GListNotify.h>
