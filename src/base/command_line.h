// Command lines, taken apart as Win32 programs take theirs apart ("Parsing C command-line
// arguments" and CreateProcessA in the Windows documentation).
#pragma once

#include <quorkit/values.h>

#include <vector>

namespace quorkit::base {

/// What the program of a command line may be called. Blanks and tabs in front of it do not count.
///
///     for (ProgramName program(line); !program.name().empty(); program.lengthen())
///         if (starts(program.name(), program.behind())) break;
class ProgramName {
   public:
    /// The line must outlive this. The first name is what stands between quotation marks, or else
    /// in front of the first blank or tab.
    explicit ProgramName(StringView line);

    /// Empty when there is none, or no longer one.
    StringView name() const { return line_.substr(0, length_); }
    StringView behind() const { return line_.substr(length_ + closed_); }

    /// The next longer name, up to a later blank, tab or the end: "C:\Program Files\a.exe" without
    /// quotation marks is first "C:\Program". Such a name holds no quotation mark and 260
    /// characters at most. It takes away the first of the words that splitArguments makes of what
    /// stands behind the name, and leaves the others as they are.
    void lengthen();

   private:
    StringView line_;
    std::size_t length_ = 0;
    std::size_t closed_ = 0;  // how many quotation marks stand behind the name
    bool quoted_ = false;
};

/// The words of a command line behind the program's name, in time linear in its length. Blanks and
/// tabs separate, but for those in quotation marks. 2n backslashes in front of a quotation mark are
/// n of them and the mark counts; 2n + 1 are n and the mark is a character; others are what they
/// are. Two quotation marks in a quoted part are one as a character. The end closes what is open.
std::vector<String> splitArguments(StringView line);

}  // namespace quorkit::base
