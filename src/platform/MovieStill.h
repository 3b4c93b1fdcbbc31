// One picture out of a movie, made without a window. It takes a libmpv of its own, which reads and decodes on
// threads that give way to all others. Any thread but the main one, which it would hold up.
#pragma once

#include "platform/Error.h"

#include <QImage>

#include <functional>

namespace marquill {

/// The picture one tenth into the movie at `path`, upright and with square pixels, at most `width` pixels
/// wide and high. `isWanted` is asked many times a second; when it says no, the movie is given up. `take` is
/// called once, before libmpv is taken down, which lasts as long as a slow volume does. Errors: those of
/// opening a regular file, anything else being refused unopened; malformed when nothing in it can be shown;
/// interrupted when it was given up.
void takeMovieStill(const QString& path, int width, const std::function<bool()>& isWanted,
                    const std::function<void(Result<QImage>)>& take);

}  // namespace marquill
