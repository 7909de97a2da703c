#pragma once
// The test for another running copy of this same executable: a per-user lock named after the
// executable's path, held for the life of the process.
namespace platform {

// True if another running copy of this executable holds the lock. When false, this process
// now holds it.
bool PrevInstance();

// For a start that skipped the test: takes the lock as soon as the old process has let it go,
// so that later starts are refused again.
void ClaimInstanceWhenFree();

} // namespace platform
