#include "TestHost.h"

bool TestHost::fails(const char* operation) {
    const auto happening = happenings.find(operation);
    if (happening != happenings.end()) {
        happening->second();
    }
    const auto failure = failures.find(operation);
    if (failure == failures.end() || --failure->second > 0) {
        return false;
    }
    failures.erase(failure);
    return true;
}
