#include "view/gl/drawcontext.h"

SDrawContext& DrawContext()
{
    static SDrawContext s_context;
    return s_context;
}
