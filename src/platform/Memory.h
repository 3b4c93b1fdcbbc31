// How the process takes memory from the system. Any thread.
#pragma once

namespace marquill {

/// Takes memory in large steps, and keeps what is freed for the next need, from the first call on. Reading a
/// folder of ten thousand clips allocates half a million small records; with the allocator's own small steps,
/// half of its time went into asking the system. Address space is taken, not memory that is never touched.
void takeMemoryInLargeSteps();

}  // namespace marquill
