// Other programs, and the addresses and mails that they open. No state.
//
// A command line is the program followed by its arguments, separated by blanks and tabs. Quotation
// marks hold words with blanks together. 2n backslashes in front of a quotation mark stand for n
// backslashes; 2n + 1 stand for n backslashes and the mark itself; two marks within a quoted part
// stand for one. No shell reads the line: pipes and "*" have no meaning. A program whose name has
// blanks is found without quotation marks too, unless a shorter part of the name is also a program.
//
// The program gets this one's current folder, environment and standard streams, but none of its
// open files. Linux looks for it on PATH, or where its name leads (docs/files.md), and passes the
// arguments on as they are. On Windows the program gets the line itself.
#pragma once

#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

namespace quorkit {

class GQuorProgram {
   public:
    explicit GQuorProgram(Ports& ports = ports::native()) : ports_(ports) {}

    /// Runs a program and waits until it has ended; the thread is blocked. Nothing happens when it
    /// cannot be started. Never an error.
    void ExecuteAndWait(const String& cmdline);

    /// Runs a program, waits for it and returns its exit code; -1 when it cannot be started or
    /// waited for. `iTimeOut` is in seconds and checked every 100 ms; 0 and below mean no limit. A
    /// program that runs longer is ended together with everything that it has started, and the
    /// result is -9999. Two things may run on: on Linux, what has left for a session of its own;
    /// and a program that this user may not end. `WindowTitle` is the title of the program's
    /// console window, if it gets a new one. With `bAllowEvents` the program around the library
    /// handles its events every 100 ms, and the code that these run may call the library again. If
    /// that code raises an error, the error reaches the caller and the program runs on.
    ///
    /// On Linux a program that was ended by a signal has the exit code 128 + the signal's number.
    /// One with a time-out has no terminal to read from, and Ctrl-C at this program's terminal does
    /// not reach it. The result is also -1, after the program has ended, when this process ignores
    /// SIGCHLD or waits for any child, because nobody can learn the exit code then.
    Long ExecuteAndWaitEx(const String& cmdline, const Optional<String>& WindowTitle = {},
                          const Optional<Boolean, true>& bAllowEvents = {},
                          const Optional<Long, 0>& iTimeOut = {});

    /// Opens an address or a document with the program that the desktop has for it, without waiting
    /// for that program. When `vsURL` is empty or cannot be opened, a message in German tells the
    /// user, with the text of the run-time error that fits. `vbOpenNewBrowser` has no effect. Never
    /// an error.
    ///
    /// On Linux xdg-open does this, and whether it finds a program cannot be learned. A text
    /// without a scheme such as "http:" is a document, unless it begins with "www.".
    void OpenURL(const String& vsURL, const Optional<Boolean>& vbOpenNewBrowser = {});

    /// Opens a new mail in the user's mail program through a "mailto:" link. Subject and body are
    /// encoded with URLPathEncode; the addresses are used as they are. False when the link cannot
    /// be opened; never an error. Without a subject the link ends in "?", or has "?&".
    Boolean OpenMail(Unchanged<String> MailTo, const Optional<Unchanged<String>>& Subject = {},
                     const Optional<Unchanged<String>>& CC = {},
                     const Optional<Unchanged<String>>& BCC = {},
                     const Optional<Unchanged<String>>& Body = {});

    /// `Text` with every character but Latin letters, digits and -./_~&:?@#!$*+ replaced by "%" and
    /// its code in code page 1252 as two hexadecimal digits. A character that the code page lacks
    /// becomes "%3F".
    String URLPathEncode(Unchanged<String> Text);
    /// `Text` with each "%" and the two characters behind it replaced by that character of code
    /// page 1252, or by U+0000 when the two are no hexadecimal number. A "+" stays a "+".
    String URLPathDecode(Unchanged<String> Text);

   private:
    Ports& ports_;
};

}  // namespace quorkit
