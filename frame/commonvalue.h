#pragma once

#include <optional>
#include <type_traits>

/** What stands in place of a value that differs among the subjects of a field. */
inline constexpr const char* MULTIPLE = "-Multiple-";

/**
 * What all subjects give for a question to one of them; nothing where they differ and where there are none.
 *
 * @param subjects  pointers
 */
template <class Subjects, class Question> auto CommonValue(const Subjects& subjects, const Question& question)
{
    using Value = std::decay_t<decltype(question(**subjects.begin()))>;
    std::optional<Value> common;
    for (const auto* const pSubject : subjects)
        if (Value value = question(*pSubject); !common)
            common = std::move(value);
        else if (!(value == *common))
            return std::optional<Value>();
    return common;
}
