// Random test data that look like those of a Swiss company: last names, first names, departments.
//
// They are drawn from fixed tables of 67 last names, 44 male and 33 female first names and 7
// departments. `iMax` limits a draw to the entries 0 ... iMax of a table, so that the same few
// entries come up. -1, any other negative number and one beyond the table mean the whole table.
//
// All objects of the process share one random sequence. Each new object restarts it from the
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

    /// A male first name for `male`; a male or female one, by chance, for `unkown`; a female one
    /// for all other numbers.
    Variant GetRandomFirstName(const Optional<ESexCode>& sexCode = {},
                               const Optional<Integer, -1>& iMax = {});

    /// The name of an organisational unit.
    Variant GetRandomOE(const Optional<Integer, -1>& iMax = {});
};

}  // namespace quorkit
