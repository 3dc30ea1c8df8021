/* A client in C: calls a member by identifier and by name, gets results by reference, and is told of an
   error. In the folder of the package, for 64 bits:

       gcc -Iinclude examples/client.c -o client.exe -lole32 -loleaut32 -luuid

   The classes must be registered, or named by a manifest: keep client.exe.manifest beside client.exe,
   and beside these two quorkit.dll and quorkit.automation.manifest. With neither, the program asks the
   DLL beside it:

       gcc -DLINKED -Iinclude examples/client.c x64/quorkit.lib -o client.exe -lole32 -loleaut32 -luuid
*/
#define COBJMACROS
#include <windows.h>

#include <oleauto.h>
#include <quorkit/automation.h>
#include <stdio.h>

/* An object of a class, or NULL. The caller releases it. */
static IDispatch* newObject(const wchar_t* name, const CLSID* known) {
    void* object = NULL;
    HRESULT result;
#ifdef LINKED
    void* factory = NULL;
    (void)name;
    result = DllGetClassObject(known, &IID_IClassFactory, &factory);
    if (SUCCEEDED(result)) {
        result = IClassFactory_CreateInstance((IClassFactory*)factory, NULL, &IID_IDispatch, &object);
        IClassFactory_Release((IClassFactory*)factory);
    }
#else
    CLSID identity;
    (void)known;
    result = CLSIDFromProgID(name, &identity);
    if (SUCCEEDED(result))
        result = CoCreateInstance(&identity, NULL, CLSCTX_INPROC_SERVER, &IID_IDispatch, &object);
#endif
    if (FAILED(result)) printf("no object: %08lX\n", (unsigned long)result);
    return (IDispatch*)object;
}

/* Calls a member with arguments, the last of them first. An error is printed. */
static VARIANT call(IDispatch* object, DISPID member, VARIANT* arguments, UINT count) {
    DISPPARAMS given = {NULL, NULL, 0, 0};
    VARIANT answer;
    EXCEPINFO failure = {0};
    UINT position = 0;
    HRESULT result;
    given.rgvarg = arguments;
    given.cArgs = count;
    VariantInit(&answer);
    result = IDispatch_Invoke(object, member, &IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &given, &answer,
                              &failure, &position);
    if (result == DISP_E_EXCEPTION) {
        printf("error %d in %ls: %ls\n", (int)(failure.scode & 0xFFFF), failure.bstrSource,
               failure.bstrDescription);
        SysFreeString(failure.bstrSource);
        SysFreeString(failure.bstrDescription);
        SysFreeString(failure.bstrHelpFile);
    } else if (FAILED(result)) {
        printf("refused: %08lX, argument %u from behind\n", (unsigned long)result, position);
    }
    return answer;
}

static VARIANT text(const wchar_t* value) {
    VARIANT made;
    VariantInit(&made);
    made.vt = VT_BSTR;
    made.bstrVal = SysAllocString(value);
    return made;
}

static VARIANT number(LONG value) {
    VARIANT made;
    VariantInit(&made);
    made.vt = VT_I4;
    made.lVal = value;
    return made;
}

/* A variable that the member fills. */
static VARIANT into(LONG* variable) {
    VARIANT made;
    VariantInit(&made);
    made.vt = VT_BYREF | VT_I4;
    made.plVal = variable;
    return made;
}

/* Prints a result and frees it, and the arguments. */
static void show(const char* what, VARIANT result, VARIANT* arguments, UINT count) {
    if (result.vt == VT_BSTR) printf("%s: %ls\n", what, result.bstrVal);
    VariantClear(&result);
    while (count > 0) VariantClear(&arguments[--count]);
}

static void pad(IDispatch* strings) {
    wchar_t spelt[] = L"lpad";
    LPOLESTR name = spelt;
    DISPID found = 0;
    VARIANT arguments[3];
    arguments[2] = text(L"0");
    arguments[1] = text(L"7");
    arguments[0] = number(3);
    show("by identifier", call(strings, QUORKIT_DISPID_GQuorStrings_LPad, arguments, 3), NULL, 0);
    IDispatch_GetIDsOfNames(strings, &IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &found);
    show("by name", call(strings, found, arguments, 3), arguments, 3);
}

static void split(IDispatch* strings) {
    LONG part[4] = {0, 0, 0, 0};
    VARIANT arguments[5];
    int i;
    arguments[4] = text(L"1.42.3.4");
    for (i = 0; i < 4; ++i) arguments[3 - i] = into(&part[i]);
    show("", call(strings, QUORKIT_DISPID_GQuorStrings_SplitAppVersionString, arguments, 5), arguments, 5);
    printf("by reference: %ld, %ld, %ld, %ld\n", part[0], part[1], part[2], part[3]);
}

static void fail(IDispatch* files) {
    VARIANT bytes;
    VARIANT arguments[2];
    VariantInit(&bytes);
    VariantInit(&arguments[0]);
    arguments[0].vt = VT_BYREF | VT_VARIANT;
    arguments[0].pvarVal = &bytes;
    arguments[1] = text(L"C:\\no\\such file");
    show("", call(files, QUORKIT_DISPID_GQuorFile_LoadFileToByteArray, arguments, 2), arguments, 2);
    VariantClear(&bytes);
}

static void weekday(IDispatch* tools) {
    VARIANT arguments[3];
    arguments[0] = number(QUORKIT_eLanguage_English);
    arguments[1] = number(0);
    VariantInit(&arguments[2]);
    arguments[2].vt = VT_DATE;
    arguments[2].date = 46356; /* 30 November 2026 */
    show("constant", call(tools, QUORKIT_DISPID_GQuorTools_WochentagString, arguments, 3), arguments, 3);
}

int main(void) {
    static const CLSID kStrings = QUORKIT_CLSID_GQuorStrings;
    static const CLSID kFile = QUORKIT_CLSID_GQuorFile;
    static const CLSID kTools = QUORKIT_CLSID_GQuorTools;
    IDispatch* strings;
    IDispatch* files;
    IDispatch* tools;
    CoInitializeEx(NULL, COINIT_APARTMENTTHREADED);
    strings = newObject(QUORKIT_PROGID_GQuorStrings, &kStrings);
    files = newObject(QUORKIT_PROGID_GQuorFile, &kFile);
    tools = newObject(QUORKIT_PROGID_GQuorTools, &kTools);
    if (strings == NULL || files == NULL || tools == NULL) return 1;
    pad(strings);
    split(strings);
    weekday(tools);
    fail(files);
    IDispatch_Release(strings);
    IDispatch_Release(files);
    IDispatch_Release(tools);
    CoUninitialize();
    return 0;
}
