// What widgets of our own are to assistive programs, which cannot know it from their class. Main thread.
#pragma once

namespace marquill {

/// From the first call on, every window has the role of one and a movie view that of a moving picture.
void installAccessibleRoles();

}  // namespace marquill
