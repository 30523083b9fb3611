#include "ui/viewer/map_source.h"
