// SPDX-License-Identifier: MIT
// Intended leaks, each with its reason. Linked into every program with the address sanitizer, which
// calls these functions by their names.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer gives the name
extern "C" const char* __lsan_default_suppressions();
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer gives the name
extern "C" const char* __lsan_default_options();

const char* __lsan_default_suppressions() {
    return
        // The finaliser deletes the head of the pool only; the other rectangles stay with the
        // process. If an operation does not return a rectangle to the pool, tests find it by the
        // pool's count (Bounds::printNumRecycled).
        "leak:Bounds::alloc\n"
        // The same for points.
        "leak:Point::alloc\n"
        // The same for pixel properties.
        "leak:PixProps::alloc\n"
        // SDL's way to a PulseAudio server keeps a small record of each question that it asks of a
        // device.
        "leak:pa_xmalloc\n"
        // The sound folder's name is replaced without freeing the one before: another object may
        // still hold it. A run of the program names its folder once.
        "leak:G::setMrmFolderUri\n"
        // libsndfile gives up on a damaged Ogg file and forgets what its decoder had begun.
        "leak:vorbis_info_init\n";
}

const char* __lsan_default_options() {
    return "print_suppressions=0";
}
