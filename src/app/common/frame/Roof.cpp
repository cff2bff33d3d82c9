#include "Roof.h"

Roof* Roof::installed;
