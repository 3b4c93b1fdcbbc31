// What widgets of our own are to assistive programs, which cannot know it from their class. Main thread.
#pragma once

namespace marquill {

/// From the first call on, every window has the role of one, a movie view that of a moving picture, and a
/// label that has a name tells its text behind it.
void installAccessibleRoles();

}  // namespace marquill
