/* quorkit for C, and for every language that can call C.
 *
 *     quorkit_library library;
 *     quorkit_object strings;
 *     quorkit_values values;
 *     const char *text;
 *     size_t length;
 *
 *     quorkit_open(&library);
 *     quorkit_new(library, "GQuorStrings", &strings);
 *     quorkit_new_values(library, &values);
 *     quorkit_set_utf8(library, values, 1, "0", QUORKIT_TO_ZERO);
 *     quorkit_set_utf8(library, values, 2, "7", QUORKIT_TO_ZERO);
 *     quorkit_set_long(library, values, 3, 3);
 *     quorkit_call_name(library, strings, "LPad", QUORKIT_CALL, values);
 *     quorkit_get_utf8(library, values, 0, &text, &length);            -- 007
 *     quorkit_close(library);
 *
 * Handles. A handle is a number in a pointer's clothes: it is never followed, and 0 is none. What
 * quorkit_open and the functions with "new" or "get_object" in their names give belongs to the
 * caller, who gives it back with quorkit_release_object or quorkit_release_values; quorkit_close
 * gives back all that is left. Using a handle that was given back is an error that is told.
 *
 * Outcomes. A function that returns int returns QUORKIT_OK, or the number of a run-time error of
 * the library, which is positive, or what was wrong with the call itself, which is negative; what
 * it would have given through pointers is then as it was. No function throws or ends the program.
 *
 * Texts. UTF-16 with any code units, or UTF-8; zeros may be in both. A text that UTF-8 has no place
 * for, since a surrogate in it has no partner, has three bytes for the surrogate, as for any other
 * unit, and comes back from them. On Linux that is how file names travel that are no UTF-8: each
 * byte that is none is the surrogate U+DC00 + byte.
 *
 * Threads. A library, with all that was got from it, is used by one thread at a time, not always
 * the same. Whoever comes while another thread is inside gets QUORKIT_BUSY at once. A function that
 * the library calls may call the library. Several libraries know nothing of each other.
 */
#ifndef QUORKIT_H
#define QUORKIT_H

/* NOLINTBEGIN(modernize-*): this is C */
#include <stddef.h>

#ifndef QUORKIT_API
#ifdef _WIN32
#define QUORKIT_API __declspec(dllimport)
#else
#define QUORKIT_API
#endif
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef struct quorkit_library_handle* quorkit_library;
typedef struct quorkit_object_handle* quorkit_object;
typedef struct quorkit_values_handle* quorkit_values;

/* The version of the library that is loaded, such as "0.1.0". */
QUORKIT_API const char* quorkit_version(void);

/* --- Outcomes --- */

enum quorkit_outcome {
    QUORKIT_OK = 0,
    QUORKIT_BAD_HANDLE = -1, /* none, given back already, or of another library */
    QUORKIT_BUSY = -2,       /* another thread is inside the library */
    QUORKIT_NO_PLACE = -3,   /* null where something is to be put or read */
    QUORKIT_NO_INDEX = -4,   /* no value, class, member ... has this index */
    QUORKIT_WRONG_KIND = -5, /* the value is of another kind */
    QUORKIT_NO_TEXT = -6,    /* the bytes are no UTF-8 */
    QUORKIT_TOO_LONG = -7    /* a length that no memory has, or bounds that do not match */
};

/* What the last function that failed would tell a person; number, "quorkit.Class", and which
 * parameter did not get what it needs, counted from 1, 0 when it was none. The texts are UTF-8 and
 * stay until the next function fails. For a handle that is no library: 0 and "". */
QUORKIT_API int quorkit_error(quorkit_library library);
QUORKIT_API const char* quorkit_error_text(quorkit_library library);
QUORKIT_API const char* quorkit_error_source(quorkit_library library);
QUORKIT_API size_t quorkit_error_argument(quorkit_library library);
/* Why the system refused something in the last call of a member, in words for a person; "" when it
 * did not. The call may have succeeded, with the result that its member documents for a refusal.
 * The text stays until the next call. */
QUORKIT_API const char* quorkit_reason(quorkit_library library);

/* --- Library and objects --- */

/* One client's view of the library: its global objects are its own. */
QUORKIT_API int quorkit_open(quorkit_library* library);
/* Gives back all that the library gave. QUORKIT_BUSY within a function that the library calls. */
QUORKIT_API int quorkit_close(quorkit_library library);

/* A new object of a class, or the library's one object of a global class. Error 429 when there is
 * no such class. */
QUORKIT_API int quorkit_new(quorkit_library library, const char* class_name,
                            quorkit_object* object);
QUORKIT_API int quorkit_new_collection(quorkit_library library, quorkit_object* collection);
QUORKIT_API int quorkit_new_dictionary(quorkit_library library, quorkit_object* dictionary);
/* From the bytes of the picture's file. Error 481 when they are none. */
QUORKIT_API int quorkit_new_picture(quorkit_library library, const unsigned char* bytes,
                                    size_t length, quorkit_object* picture);
/* The object lives on while something else holds it. */
QUORKIT_API int quorkit_release_object(quorkit_library library, quorkit_object object);
/* The published name of the object's class. It stays while the object lives. */
QUORKIT_API int quorkit_class_name(quorkit_library library, quorkit_object object,
                                   const char** name);
/* A number that all handles of one object have, and of no other object while it lives. */
QUORKIT_API int quorkit_identity(quorkit_library library, quorkit_object object, size_t* identity);

/* --- Values: a result, and a list of arguments or elements --- */

/* Index 0 is the result of a call, 1 and more are the arguments, or the elements of an array. */
QUORKIT_API int quorkit_new_values(quorkit_library library, quorkit_values* values);
QUORKIT_API int quorkit_release_values(quorkit_library library, quorkit_values values);
/* How many there are, without the result. */
QUORKIT_API int quorkit_count(quorkit_library library, quorkit_values values, size_t* count);
/* None, and an Empty result. What memory there is stays for the next. */
QUORKIT_API int quorkit_clear(quorkit_library library, quorkit_values values);

enum quorkit_kind {
    QUORKIT_EMPTY,
    QUORKIT_NULL,
    QUORKIT_ERROR_VALUE,
    QUORKIT_BOOLEAN,
    QUORKIT_INTEGER, /* 16 bits */
    QUORKIT_LONG,    /* 32 bits */
    QUORKIT_DOUBLE,
    QUORKIT_DATE,
    QUORKIT_TEXT,
    QUORKIT_TEXT_ARRAY,
    QUORKIT_BYTE_ARRAY,
    QUORKIT_VALUE_ARRAY,
    QUORKIT_OBJECT
};
QUORKIT_API int quorkit_kind_of(quorkit_library library, quorkit_values values, size_t index,
                                int* kind);

/* The error value that stands for an argument that is left out. */
#define QUORKIT_MISSING 0x80020004u
/* As a length: the text ends at its first zero. */
#define QUORKIT_TO_ZERO ((size_t)-1)

/* Each sets the value at an index, which is that of a value that is there, or the next. */
QUORKIT_API int quorkit_set_empty(quorkit_library library, quorkit_values values, size_t index);
QUORKIT_API int quorkit_set_null(quorkit_library library, quorkit_values values, size_t index);
QUORKIT_API int quorkit_set_error(quorkit_library library, quorkit_values values, size_t index,
                                  unsigned int code);
QUORKIT_API int quorkit_set_boolean(quorkit_library library, quorkit_values values, size_t index,
                                    int truth);
QUORKIT_API int quorkit_set_integer(quorkit_library library, quorkit_values values, size_t index,
                                    short number);
QUORKIT_API int quorkit_set_long(quorkit_library library, quorkit_values values, size_t index,
                                 int number);
QUORKIT_API int quorkit_set_double(quorkit_library library, quorkit_values values, size_t index,
                                   double number);
/* Days since 30 December 1899; the fraction is the time of day and always leads away from zero. */
QUORKIT_API int quorkit_set_date(quorkit_library library, quorkit_values values, size_t index,
                                 double days);
QUORKIT_API int quorkit_set_utf8(quorkit_library library, quorkit_values values, size_t index,
                                 const char* text, size_t bytes);
QUORKIT_API int quorkit_set_utf16(quorkit_library library, quorkit_values values, size_t index,
                                  const unsigned short* text, size_t units);
/* 0 is Nothing. The value holds the object for itself. */
QUORKIT_API int quorkit_set_object(quorkit_library library, quorkit_values values, size_t index,
                                   quorkit_object object);
/* An array of bytes, counted from `lower`; one without bounds when `bytes` is null. */
QUORKIT_API int quorkit_set_bytes(quorkit_library library, quorkit_values values, size_t index,
                                  const unsigned char* bytes, size_t length, int lower);

/* Indexes lower ... lower + count - 1. */
typedef struct quorkit_bounds {
    int lower;
    int count;
} quorkit_bounds;
/* An array with the elements of another list, which stays as it is; the first index runs fastest.
 * The kind is QUORKIT_TEXT_ARRAY, for which all elements are texts, or QUORKIT_VALUE_ARRAY.
 * Dimensions are 1, 2, or 0 for an array without bounds. */
QUORKIT_API int quorkit_set_array(quorkit_library library, quorkit_values values, size_t index,
                                  quorkit_values elements, int kind, int dimensions,
                                  const quorkit_bounds* bounds);
/* A copy of a value of another list, or the same. */
QUORKIT_API int quorkit_set_value(quorkit_library library, quorkit_values values, size_t index,
                                  quorkit_values from, size_t from_index);
/* The argument at this index is for the parameter of this name. Behind it all have names. */
QUORKIT_API int quorkit_set_name(quorkit_library library, quorkit_values values, size_t index,
                                 const char* name);

/* Each reads the value at an index, which must be of the kind: nothing is converted. */
QUORKIT_API int quorkit_get_error(quorkit_library library, quorkit_values values, size_t index,
                                  unsigned int* code);
/* 1 or 0. */
QUORKIT_API int quorkit_get_boolean(quorkit_library library, quorkit_values values, size_t index,
                                    int* truth);
QUORKIT_API int quorkit_get_integer(quorkit_library library, quorkit_values values, size_t index,
                                    short* number);
QUORKIT_API int quorkit_get_long(quorkit_library library, quorkit_values values, size_t index,
                                 int* number);
QUORKIT_API int quorkit_get_double(quorkit_library library, quorkit_values values, size_t index,
                                   double* number);
QUORKIT_API int quorkit_get_date(quorkit_library library, quorkit_values values, size_t index,
                                 double* days);
/* Texts have a zero behind them that is not counted. They and bytes stay until the list or the
 * value at this index changes; one in UTF-8 also until the value is read as UTF-8 again. */
QUORKIT_API int quorkit_get_utf8(quorkit_library library, quorkit_values values, size_t index,
                                 const char** text, size_t* bytes);
QUORKIT_API int quorkit_get_utf16(quorkit_library library, quorkit_values values, size_t index,
                                  const unsigned short** text, size_t* units);
QUORKIT_API int quorkit_get_bytes(quorkit_library library, quorkit_values values, size_t index,
                                  const unsigned char** bytes, size_t* length);
/* A handle of its own for each time; 0 for Nothing. */
QUORKIT_API int quorkit_get_object(quorkit_library library, quorkit_values values, size_t index,
                                   quorkit_object* object);
/* The bounds of an array of any kind; of `bounds` there are two, and as many are set as there are
 * dimensions, of which an array without bounds has 0. */
QUORKIT_API int quorkit_get_bounds(quorkit_library library, quorkit_values values, size_t index,
                                   int* dimensions, quorkit_bounds* bounds);
/* Another list becomes the elements of an array of texts or values, from index 1. */
QUORKIT_API int quorkit_get_elements(quorkit_library library, quorkit_values values, size_t index,
                                     quorkit_values elements);

/* --- Calls --- */

enum quorkit_call_kind {
    QUORKIT_CALL, /* a method, or the value of a property */
    QUORKIT_GET,  /* the same */
    QUORKIT_LET   /* the last argument becomes the value of a property */
};
/* The identifier of a member, without regard to case. It never changes from version to version, but
 * objects of a client's own have none. Error 438 when there is none. */
QUORKIT_API int quorkit_identifier(quorkit_library library, quorkit_object object, const char* name,
                                   int* identifier);
/* Calls a member with the arguments in `values`. An argument may be left out behind the others, or
 * as the error value QUORKIT_MISSING, when its parameter is optional or brings a result. Afterwards
 * index 0 is the result and 1 ... are the final values of all parameters, in order, without names;
 * after a failure the result is Empty. When the arguments did not come to their parameters they are
 * as they were. */
QUORKIT_API int quorkit_call(quorkit_library library, quorkit_object object, int identifier,
                             int kind, quorkit_values values);
QUORKIT_API int quorkit_call_name(quorkit_library library, quorkit_object object, const char* name,
                                  int kind, quorkit_values values);
/* Sets the key of the item at a position of a collection, counted from 1, which no member tells: a
 * text, "" when it has none. Error 9 when there is no such position. */
QUORKIT_API int quorkit_set_key(quorkit_library library, quorkit_values values, size_t index,
                                quorkit_object collection, int position);
/* The values become what a loop over the object visits, from index 1. Error 438 for an object that
 * is no container. */
QUORKIT_API int quorkit_elements(quorkit_library library, quorkit_object object,
                                 quorkit_values values);

/* --- Objects of the client's own: forms, collections --- */

typedef struct quorkit_class {
    const char* name;
    /* A member was called, with the arguments in `values`, which belongs to the library. Index 0 is
     * to become the result, and arguments may be changed. Returns QUORKIT_OK, or the number of an
     * error, 438 for no such member. */
    int (*call)(void* data, quorkit_library library, const char* name, int kind,
                quorkit_values values);
    /* Nobody has the object any more. May be null. Give such objects back, or close the library,
     * before a language ends in which this is written. */
    void (*release)(void* data);
} quorkit_class;
/* An object whose members are the function `call`. The class must stay while the object lives; the
 * name need not. */
QUORKIT_API int quorkit_new_foreign(quorkit_library library, const quorkit_class* own, void* data,
                                    quorkit_object* object);
/* The data of an object that was made with this class, otherwise QUORKIT_WRONG_KIND. */
QUORKIT_API int quorkit_foreign_data(quorkit_library library, quorkit_object object,
                                     const quorkit_class* own, void** data);

/* --- The catalogue: what the library publishes. All texts stay --- */

enum quorkit_class_kind { QUORKIT_GLOBAL, QUORKIT_CREATABLE, QUORKIT_RUNTIME };
enum quorkit_member_kind { QUORKIT_METHOD, QUORKIT_PROPERTY_GET, QUORKIT_PROPERTY_LET };
typedef struct quorkit_class_info {
    const char* name;
    int kind;
    const char* role;
    const char* identity;           /* of the class, such as "673d863e-04b8-..."; may be "" */
    const char* interface_identity; /* of its interface */
    size_t members;
} quorkit_class_info;
typedef struct quorkit_member_info {
    int identifier;
    const char* name;
    int kind;
    const char* result; /* "Long", "String()", or an enumeration or class; "" for none */
    const char* sentence;
    size_t parameters;
} quorkit_member_info;
typedef struct quorkit_parameter_info {
    const char* name;
    const char* type;
    int by_reference;
    int changed;  /* by reference, and the member may change it */
    int result;   /* changed, and the value handed in is not read */
    int optional; /* it has a default */
} quorkit_parameter_info;
typedef struct quorkit_enumeration_info {
    const char* name;
    const char* sentence;
    size_t constants;
} quorkit_enumeration_info;
typedef struct quorkit_constant_info {
    const char* name;
    int value;
} quorkit_constant_info;

/* Indexes count from 0. QUORKIT_NO_INDEX behind the last. */
QUORKIT_API int quorkit_class_at(size_t index, quorkit_class_info* info);
QUORKIT_API int quorkit_member_at(size_t of_class, size_t index, quorkit_member_info* info);
QUORKIT_API int quorkit_parameter_at(size_t of_class, size_t member, size_t index,
                                     quorkit_parameter_info* info);
QUORKIT_API int quorkit_enumeration_at(size_t index, quorkit_enumeration_info* info);
QUORKIT_API int quorkit_constant_at(size_t enumeration, size_t index, quorkit_constant_info* info);
/* Sets the default of an optional parameter. */
QUORKIT_API int quorkit_set_default(quorkit_library library, quorkit_values values, size_t index,
                                    size_t of_class, size_t member, size_t parameter);

#ifdef __cplusplus
}
#endif
/* NOLINTEND(modernize-*) */
#endif
