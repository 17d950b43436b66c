/// Which of the recent files are still there.
#pragma once

#include "toolkit/text.h"

#include <cstddef>
#include <vector>

namespace tandrel::recent
{

/// The first twelve files that are found. A file that lies where nobody answers is not found for now, and may turn up
/// later.
class Listing
{
public:
    /// Reads the list anew. Waits for answers, 50 ms at most altogether.
    void read();
    /// In the order of the list, as it shows them: without blanks around them, unless those belong to the name.
    const std::vector<Text>& files() const { return files_; }

    /// A file that has turned up, and its place among `files`.
    struct Newcomer {
        std::size_t index;
        Text path;
    };
    /// Looks again for those that nobody has answered for. Those that have turned up are among `files` from here on, as
    /// long as there is room; in the order in which they came in. Waits for nothing.
    std::vector<Newcomer> lookAgain();

private:
    enum class Answer { None, Found, Missing };
    struct Line {
        Text path;
        Answer answer = Answer::None;
    };
    void lookAt(std::size_t begin, std::size_t end, int waitMs);
    static Answer answerFor(Text& path);
    /// Of these lines, some at a time.
    void askAbout(const std::vector<std::size_t>& silent);

    std::vector<Line> lines_;
    std::vector<Text> files_;
    /// Which of the silent lines is asked about first the next time.
    std::size_t turn_ = 0;
};

} // namespace tandrel::recent
