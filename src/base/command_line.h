// Splitting command lines as Win32 programs do ("Parsing C command-line arguments" and
// CreateProcessA in the Windows documentation).
#pragma once

#include <quorkit/values.h>

#include <vector>

namespace quorkit::base {

/// The possible names of the program in a command line, the shortest first. Blanks and tabs in
/// front are skipped.
///
///     for (ProgramName program(line); !program.name().empty(); program.lengthen())
///         if (starts(program.name(), program.behind())) break;
class ProgramName {
   public:
    /// The first name is the text between quotation marks, or else the text in front of the first
    /// blank or tab. The line must outlive this.
    explicit ProgramName(StringView line);

    /// Empty when there is no name, or no longer one.
    StringView name() const { return line_.substr(0, length_); }
    StringView behind() const { return line_.substr(length_ + closed_); }

    /// Goes on to the next longer name, which ends at a later blank or tab or at the end: without
    /// quotation marks "C:\Program Files\a.exe" is tried as "C:\Program" first. A longer name holds
    /// no quotation mark and at most 260 characters. Each step takes the first of the words that
    /// splitArguments finds behind the name, and leaves the others as they are.
    void lengthen();

   private:
    StringView line_;
    std::size_t length_ = 0;
    std::size_t closed_ = 0;  // number of quotation marks behind the name
    bool quoted_ = false;
};

/// The words behind the program's name, in linear time. Blanks and tabs separate words, except
/// within quotation marks. 2n backslashes in front of a quotation mark stand for n backslashes, and
/// the mark opens or closes a quoted part; 2n + 1 stand for n backslashes and the mark as a
/// character; other backslashes stand for themselves. Two quotation marks within a quoted part
/// stand for one as a character. The end of the line closes an open part.
std::vector<String> splitArguments(StringView line);

}  // namespace quorkit::base
