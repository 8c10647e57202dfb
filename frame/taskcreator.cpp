#include "frame/taskcreator.h"

void CTaskCreator::TaskFinished(qlonglong, TaskStatus_e) {}
