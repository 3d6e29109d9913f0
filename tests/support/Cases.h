#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <tuple>

/// One case of a question: what is given, the right answer, and why the case is there.
template <class Given, class Answer>
struct Case {
    Given fGiven;
    Answer fAnswer;
    const char* fWhy = "";
};

template <class Given, class Ask>
auto Answered(const Given& given, const Ask& ask)
{
    if constexpr (requires { std::tuple_size<Given>::value; })
        return std::apply(ask, given);
    else
        return ask(given);
}

/// Asks each case; a tuple of things given is handed over as arguments.
///
///     ExpectEach<std::tuple<double, int>, std::string>({{{0.5, 0}, "1", "half goes up"}},
///                                                      ShortText);
template <class Given, class Answer, class Ask>
void ExpectEach(std::initializer_list<Case<Given, Answer>> cases, const Ask& ask)
{
    int number = 0;
    for (const Case<Given, Answer>& row : cases) {
        SCOPED_TRACE(testing::Message() << "case " << ++number << ": " << row.fWhy);
        EXPECT_EQ(Answered(row.fGiven, ask), row.fAnswer);
    }
}
