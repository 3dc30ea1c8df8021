// Settings from Node, through the library for C: node settings.mjs LIBRARY FOLDER
//
// koffi (npm) calls C; this is all that it needs to know of quorkit.h.
import koffi from "koffi";

const [, , file, folder] = process.argv;
const native = koffi.load(file);
const TO_ZERO = 2n ** 64n - 1n; // a text that ends at its first zero
const CALL = 0, LET = 2;

const status = (declaration) => {
  const call = native.func(`int quorkit_${declaration}`);
  return (...words) => {
    if (call(...words) !== 0) throw new Error(errorText(library));
  };
};
const errorText = native.func("const char *quorkit_error_text(void *library)");
const open = native.func("int quorkit_open(_Out_ void **library)");
const create = status("new(void *library, const char *class_name, _Out_ void **object)");
const newValues = status("new_values(void *library, _Out_ void **values)");
const clear = status("clear(void *library, void *values)");
const setText = status("set_utf8(void *library, void *values, size_t index, const char *text, size_t bytes)");
const setLong = status("set_long(void *library, void *values, size_t index, int number)");
const callName = status("call_name(void *library, void *object, const char *name, int kind, void *values)");
const getText = status("get_utf8(void *library, void *values, size_t index, _Out_ const char **text, _Out_ size_t *bytes)");
const close = native.func("int quorkit_close(void *library)");

const made = (make, ...words) => {
  const place = [null];
  make(...words, place);
  return place[0];
};
const library = made(open);
const values = made(newValues, library);

/** An object whose members are called by name, with texts and whole numbers, and give a text. */
function object(className) {
  const handle = made(create, library, className);
  return (member, kind, ...words) => {
    clear(library, values);
    words.forEach((word, index) => typeof word === "number"
      ? setLong(library, values, index + 1, word)
      : setText(library, values, index + 1, word, TO_ZERO));
    callName(library, handle, member, kind, values);
    const text = [null], bytes = [0];
    try {
      getText(library, values, 0, text, bytes);
      return text[0];
    } catch {
      return undefined; // another kind of value
    }
  };
}

const ini = object("QuorInifile");
ini("IniFileName", LET, `${folder}/app.ini`);
ini("WriteKeyValue", CALL, "Mail", "Server", "post.example");
console.log(ini("ReadKeyValue", CALL, "Mail", "Server", ""));

const strings = object("GQuorStrings");
console.log(strings("LPad", CALL, "0", "7", 3));
try {
  strings("LPad", CALL, "0", "7", "three");
} catch (error) {
  console.log(error.message);
}
close(library);
