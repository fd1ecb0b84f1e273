#pragma once

#include "base/unique_any.h"

namespace velk::doctor {

// A picture for each state, in their order, drawn as large as asked for (pixels) on the windows' background.
unique_image_list statePictures(int size);

} // namespace velk::doctor
