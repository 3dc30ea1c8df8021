// Other programs, and the addresses and mails that they open. No state.
//
// A command line begins with the program and goes on with its arguments. Blanks and tabs separate
// the words, but for those in quotation marks; 2n backslashes in front of a quotation mark are n of
// them, 2n + 1 are n and the mark itself, and two marks in a quoted part are one. No shell reads
// it: there are no pipes, and no "*". A program without quotation marks whose name has blanks is
// found all the same, unless a shorter part of it is a program too.
//
// The program has this one's current folder, environment and standard streams, and none of its
// files. On Linux the program is sought on PATH, or where its name leads (docs/files.md); its
// arguments reach it as they are. On Windows it gets the line itself.
#pragma once

#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

namespace quorkit {

class GQuorProgram {
   public:
    explicit GQuorProgram(Ports& ports = ports::native()) : ports_(ports) {}

    /// Runs a program and waits until it has ended, blocking the thread. When it cannot be started
    /// nothing happens; never an error.
    void ExecuteAndWait(const String& cmdline);

    /// Runs a program, waits for it and gives its exit code; -1 when it cannot be started or waited
    /// for, and -9999 when it has run for more than `iTimeOut` seconds, looked at every 100 ms. It
    /// has then been ended, and so has everything that it has started, on Linux unless that has
    /// left for a session of its own; one that this user may not end runs on. 0 and below let it
    /// run for ever. `WindowTitle` is that of the console window, where it gets a new one. With
    /// `bAllowEvents` the program around the library handles its events every 100 ms, so that what
    /// these run may call the library again; an error of theirs reaches the caller, and the program
    /// runs on.
    ///
    /// On Linux a program that a signal ended has the exit code 128 + its number; one with a
    /// time-out has no terminal to read from, and Ctrl-C at this program's does not reach it. The
    /// result is -1 too, once the program has ended, when nobody can learn its exit code because
    /// this process ignores SIGCHLD, or waits for any child.
    Long ExecuteAndWaitEx(const String& cmdline, const Optional<String>& WindowTitle = {},
                          const Optional<Boolean, true>& bAllowEvents = {},
                          const Optional<Long, 0>& iTimeOut = {});

    /// Opens an address or a document with the program that the desktop has for it, and does not
    /// wait for that. Messages in German tell the user of an empty `vsURL`, and of one that cannot
    /// be opened, with the text of the run-time error that fits. `vbOpenNewBrowser` has no effect.
    /// Never an error.
    ///
    /// On Linux that is xdg-open's affair; whether it finds a program cannot be learned. What has
    /// no scheme such as "http:" is a document, or else begins with "www.".
    void OpenURL(const String& vsURL, const Optional<Boolean>& vbOpenNewBrowser = {});

    /// Opens a new mail with the user's mail program, by a "mailto:" link. Subject and body are
    /// encoded with URLPathEncode, the addresses are taken as they are. False when the link cannot
    /// be opened; never an error. Without a subject the link has "?&" or a "?" at its end.
    Boolean OpenMail(Unchanged<String> MailTo, const Optional<Unchanged<String>>& Subject = {},
                     const Optional<Unchanged<String>>& CC = {},
                     const Optional<Unchanged<String>>& BCC = {},
                     const Optional<Unchanged<String>>& Body = {});

    /// `Text` with "%" and two hexadecimal digits, its code in code page 1252, for each character
    /// but Latin letters, digits and -./_~&:?@#!$*+ . What the code page lacks becomes "%3F".
    String URLPathEncode(Unchanged<String> Text);
    /// `Text` with the character of code page 1252 for each "%" and the two characters behind it;
    /// U+0000 when these are no hexadecimal number. A "+" stays one.
    String URLPathDecode(Unchanged<String> Text);

   private:
    Ports& ports_;
};

}  // namespace quorkit
