// The host of a virtual list: it answers from the items' numbers, and notes what it was asked.
#pragma once

#include "ListFixture.h"

#include <functional>
#include <string>
#include <vector>

namespace test {

class VirtualHost
{
public:
    struct Question
    {
        UINT item;
        UINT column;
        UINT what;
    };

    VirtualHost() { s_now = this; }
    ~VirtualHost() { s_now = nullptr; }
    VirtualHost(const VirtualHost&) = delete;
    VirtualHost& operator=(const VirtualHost&) = delete;

    static std::string TextOf(UINT item, UINT column)
    {
        return std::string(1, static_cast<char>('a' + item % 26)) + std::to_string(item) + "." +
               std::to_string(column);
    }
    // What a column of the list is made with.
    static void Get(GList* list, UINT item, UINT column, UINT what, void* answer)
    {
        if (s_now) {
            s_now->Answer(list, {item, column, what}, answer);
        }
    }
    std::vector<Question> Take() { return std::exchange(questions, {}); }

    std::vector<Question> questions;
    // Called before an answer; false for none.
    std::function<bool(GList*, const Question&)> onQuestion;
    GLISTMATCH match{};
    std::string word; // of the match
    UINT found = END;

private:
    void Answer(GList* list, const Question& question, void* answer)
    {
        questions.push_back(question);
        const auto ask = onQuestion; // which may replace itself
        if (ask && !ask(list, question)) {
            return;
        }
        if (question.what == LGET_TEXT) {
            m_text = Wide(TextOf(question.item, question.column));
            *static_cast<LPCWSTR*>(answer) = m_text.data();
        } else if (question.what == LGET_MATCH) {
            match = *static_cast<GLISTMATCH*>(answer);
            word = Narrow(match.text);
            static_cast<GLISTMATCH*>(answer)->found = found;
        } else {
            *static_cast<UINT*>(answer) = question.what == LGET_IMAGE ? question.item % 3
                                          : question.item % 2         ? LSIS_CHECKED
                                                                      : 0;
        }
    }

    static inline VirtualHost* s_now = nullptr;
    std::vector<wchar_t> m_text;
};

} // namespace test
