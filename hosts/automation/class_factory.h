// Makes the objects that clients ask for.
#pragma once

#include <quorkit/catalogue.h>
#include <unknwn.h>

#include "automation/counted.h"

namespace quorkit::automation {

/// Makes objects of a class; of a global class it gives each apartment its one instance.
class ClassFactory final : public Counted<ClassFactory, IClassFactory> {
   public:
    /// Counted once.
    explicit ClassFactory(const ClassInfo& info);

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID wanted, void** made) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

   private:
    const String className_;
};

/// The public class of that identity; null when there is none.
const ClassInfo* classOf(const GUID& identity);

}  // namespace quorkit::automation
