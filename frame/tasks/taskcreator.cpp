#include "frame/tasks/taskcreator.h"

void CTaskCreator::TaskFinished(qlonglong, TaskStatus_e) {}
