#include "simulation/panel/itempanels.h"
