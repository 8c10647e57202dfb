#include "scene/iselectable.h"

ISelectable::~ISelectable() = default;
