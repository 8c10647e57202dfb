#include "app/batch/render/batchprompt.h"

#include "app/batch/batch.h"

#include <cstdlib>

int CBatchPrompt::Ask(const SPrompt& prompt)
{
    BatchError(BatchFailed, prompt.sText.simplified());
    if (prompt.eKind == PromptCritical)
        std::_Exit(BatchFailed);
    return prompt.nEscape;
}
