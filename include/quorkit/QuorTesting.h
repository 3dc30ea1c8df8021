// Random test data that look like a Swiss company's: last names, first names, departments.
//
// They are drawn from fixed tables of 67 last names, 44 male and 33 female first names and 7
// departments. `iMax` limits a draw to the entries 0 ... iMax of a table, so that few and always
// the same ones occur; -1, any other negative number and one beyond the table mean all of it.
//
// All objects of the process draw from one sequence, and each new object starts it anew from the
// system's counter.
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/parameters.h>
#include <quorkit/ports/ports.h>
#include <quorkit/values.h>

namespace quorkit {

class QuorTesting {
   public:
    explicit QuorTesting(Ports& ports = ports::native());

    String GetRandomLastName(const Optional<Integer, -1>& iMax = {});

    /// A male first name for `male`, and for `unkown` every other time by chance; a female one
    /// otherwise, also for numbers that are no ESexCode.
    Variant GetRandomFirstName(const Optional<ESexCode>& sexCode = {},
                               const Optional<Integer, -1>& iMax = {});

    /// The name of an organisational unit.
    Variant GetRandomOE(const Optional<Integer, -1>& iMax = {});
};

}  // namespace quorkit
