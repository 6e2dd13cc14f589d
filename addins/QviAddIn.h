/*
 * QviAddIn.h - writing an add-in for QVV7.
 *
 * An add-in is a native shared library (.so on Linux, .dll on Windows) that
 * offers one or more types. A type is a function of one or two inputs (a
 * material property that the document evaluates through an "External"
 * function) or a material model (the stress-strain behaviour of a material
 * whose "External" member names it). The add-in exports one C function,
 * QviGetAddIn, that returns a static description of its types; the host
 * reaches the types through the bridge library and calls them through the
 * plain C function pointers listed in that description. Nothing else (no
 * C++ runtime, no managed runtime) is shared between host and add-in.
 *
 * THE CONTRACT
 *
 *  - Return codes. Every method returns 0 for success and any other value for
 *    failure; the host turns a failure into an error status that names the
 *    type, the method and the code, and a function evaluation into the
 *    no-value marker (1.7976931348623157e308). A "Calculate" that returns 0
 *    but writes NaN or an infinity is treated as a failure too.
 *  - Crashes are NOT contained. The add-in runs inside the host process. An
 *    add-in that dereferences a bad pointer, overruns a buffer, calls abort(),
 *    or lets a C++ exception or a longjmp cross this C interface takes the
 *    whole program down with it, possibly after damaging the host's memory.
 *    The host installs no signal handlers and does not try to recover: it
 *    cannot, because the state of the process after such a fault is unknown.
 *    Catch every exception inside your methods and return a code instead.
 *    (A host that must survive untrusted add-ins has to run them in a
 *    separate process; QVV7 does not.)
 *  - Threads. The host calls one instance from one thread at a time and never
 *    concurrently; instances of the same type may live on different
 *    threads. Keep per-instance state in the instance, not in globals.
 *  - Lifetime. The host never unloads an add-in library once opened (its
 *    function pointers are held by function objects whose end the host
 *    cannot foresee). Instances are made by `create` and, when the type
 *    offers a "Dispose" method, released by it exactly once; a type without
 *    "Dispose" must not allocate per instance.
 *  - Strings are UTF-8 and NUL-terminated; pointers handed to a method are
 *    valid only for the duration of the call.
 *  - Compatibility. `abi_version` must equal QVI_ADDIN_ABI_VERSION of the
 *    header the host was built with; any other value makes the host refuse the
 *    library ("incompatible add-in") before calling anything in it.
 *
 * THE CALL SEQUENCE for a function type
 *
 *   self = create();
 *   set_field(self, name, value)   for each field stored in the document
 *   Initialize(self)               when offered
 *   SetID(self, n)                 when the function is given its number
 *   Calculate(self, &x, y, &out)   any number of times (y may be NULL)
 *   Dispose(self)                  when offered, at the end
 *
 * A field setting that the document changes later is applied the same way:
 * set_field for the new value, then Initialize again.
 *
 * A COMPLETE EXAMPLE: a power-law conductivity k = ksat * (1 + psi/a)^-n
 *
 *   #include <math.h>
 *   #include <stdlib.h>
 *   #include <string.h>
 *   #include "addins/QviAddIn.h"
 *
 *   typedef struct { double ksat, a, n; } PowerK;
 *
 *   static void* create(void) {
 *     PowerK* k = (PowerK*)malloc(sizeof *k);
 *     if (k) { k->ksat = 1e-5; k->a = 10; k->n = 2; }
 *     return k;
 *   }
 *   static int set_field(void* self, const char* name, const char* value) {
 *     PowerK* k = (PowerK*)self;
 *     char* end;
 *     double v = strtod(value, &end);
 *     if (end == value || *end) return 1;             // not a number
 *     if (!strcmp(name, "KSat")) k->ksat = v;
 *     else if (!strcmp(name, "A")) k->a = v;
 *     else if (!strcmp(name, "N")) k->n = v;
 *     else return 2;                                 // unknown field
 *     return 0;
 *   }
 *   static int calculate(void* self, const double* x, const double* y, double* out) {
 *     const PowerK* k = (const PowerK*)self;
 *     (void)y;
 *     if (*x < 0 || k->a <= 0) return 3;              // outside the domain
 *     *out = k->ksat * pow(1 + *x / k->a, -k->n);
 *     return 0;
 *   }
 *   static void dispose(void* self) { free(self); }
 *
 *   static const QviAddInField fields[] = {
 *     {"KSat", "1e-5", "saturated conductivity (m/s)"},
 *     {"A", "10", "suction scale (kPa)"},
 *     {"N", "2", "exponent"}};
 *   static const QviAddInMethod methods[] = {
 *     {"Calculate", QVI_SIG_CALCULATE, (QviMethodFn)calculate},
 *     {"Dispose", QVI_SIG_DISPOSE, (QviMethodFn)dispose}};
 *   static const QviAddInType types[] = {
 *     {"PowerK", "power-law conductivity", fields, 3, methods, 2, create, set_field}};
 *   static const QviAddInModule module = {QVI_ADDIN_ABI_VERSION, "Example", types, 1};
 *
 *   QVI_ADDIN_EXPORT const QviAddInModule* QviGetAddIn(void) { return &module; }
 *
 * Build it as a shared library (gcc -shared -fPIC powerk.c -o libpowerk.so
 * -lm), put it in an add-in folder (QVV7_ADDIN_PATH, the user's folder
 * ~/.local/share/qvv7/addins, or the project's folder), and evaluate it with
 *   qvdoc fn "External(Assembly=libpowerk.so,Function=PowerK,Field.N=3)" --from 0 --to 100
 * (add --addins DIR to name the folder on the command line).
 */
#ifndef QVI_ADDIN_H
#define QVI_ADDIN_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The version of this interface; an add-in states the one it was built for. */
#define QVI_ADDIN_ABI_VERSION 1u

/* The name of the one function an add-in exports. */
#define QVI_ADDIN_ENTRY "QviGetAddIn"

/* Marks the export; in C++ it also gives it C linkage. */
#ifdef __cplusplus
#define QVI_ADDIN_LINKAGE extern "C"
#else
#define QVI_ADDIN_LINKAGE
#endif
#if defined(_WIN32)
#define QVI_ADDIN_EXPORT QVI_ADDIN_LINKAGE __declspec(dllexport)
#else
#define QVI_ADDIN_EXPORT QVI_ADDIN_LINKAGE __attribute__((visibility("default")))
#endif

/* A state point of a material model: where it is and what it carries.
   Stresses and strains are in Voigt order xx, yy, zz, xy, yz, zx; tension
   positive. */
typedef struct QviMatlPoint {
  int element;            /* element number, 1-based */
  int point;              /* integration point within the element, 1-based */
  double x, y;            /* coordinates */
  double strain[6];       /* total strain */
  double stress[6];       /* effective stress at the start of the step */
  double pwp;             /* pore-water pressure */
} QviMatlPoint;

/* The signatures a method can have. The host binds a method by its name and
   checks that its signature is the one the name requires (below). */
typedef enum QviSignature {
  /* "Calculate": *out = f(*x, y ? *y : none). */
  QVI_SIG_CALCULATE = 1,        /* int (*)(void* self, const double* x, const double* y, double* out) */
  /* "SetID": the function number the host knows the function by. */
  QVI_SIG_SET_ID = 2,           /* int (*)(void* self, int id) */
  /* "Initialize": after the fields are set, before the first calculation. */
  QVI_SIG_INITIALIZE = 3,       /* int (*)(void* self) */
  /* "Review": a human-readable account of the add-in's data, NUL-terminated,
     at most `size` bytes including the NUL. */
  QVI_SIG_REVIEW = 4,           /* int (*)(void* self, char* text, size_t size) */
  /* "MaxPV": the largest input (primary variable) for which Calculate is
     meaningful; the host offers it to plots and tables. */
  QVI_SIG_MAX_PV = 5,           /* int (*)(void* self, double* out) */
  /* "Dispose": releases the instance. */
  QVI_SIG_DISPOSE = 6,          /* void (*)(void* self) */
  /* "CalculateMatrix": the 6 x 6 constitutive matrix (row-major) at a point. */
  QVI_SIG_CALCULATE_MATRIX = 7, /* int (*)(void* self, const QviMatlPoint* at, double* d) */
  /* "UpdateStresses": stress[6] at the end of a step from the point's start
     stresses and the strain increment dstrain[6]. */
  QVI_SIG_UPDATE_STRESSES = 8,  /* int (*)(void* self, const QviMatlPoint* at, const double* dstrain, double* stress) */
  /* "CalculateForce" and "CalculateShearForce": out[n] from in[n] (the
     displacements of a structural or interface element). */
  QVI_SIG_CALCULATE_FORCE = 9   /* int (*)(void* self, const double* in, int n, double* out) */
} QviSignature;

/* A method as stored in the type's table; cast back to its signature. */
typedef void (*QviMethodFn)(void);

typedef struct QviAddInMethod {
  const char* name;   /* "Calculate", "SetID", "Initialize", "Review", "MaxPV",
                         "Dispose", "CalculateMatrix", "UpdateStresses",
                         "CalculateForce", "CalculateShearForce" */
  int signature;      /* a QviSignature */
  QviMethodFn fn;
} QviAddInMethod;

/* A setting of a type, set by name as text. */
typedef struct QviAddInField {
  const char* name;           /* letters, digits and '_' only */
  const char* default_value;  /* shown to the user; may be NULL */
  const char* description;    /* may be NULL */
} QviAddInField;

typedef struct QviAddInType {
  const char* name;           /* unique within the add-in */
  const char* description;    /* may be NULL */
  const QviAddInField* fields;
  int field_count;
  const QviAddInMethod* methods;
  int method_count;
  /* A new instance with the default field values; NULL on failure. */
  void* (*create)(void);
  /* Sets one field from its text; 0 on success. May be NULL for a type
     without fields. */
  int (*set_field)(void* self, const char* name, const char* value);
} QviAddInType;

typedef struct QviAddInModule {
  unsigned abi_version;       /* QVI_ADDIN_ABI_VERSION */
  const char* name;           /* the add-in's own name, for messages */
  const QviAddInType* types;
  int type_count;
} QviAddInModule;

/* The one export of an add-in. The result must stay valid while the library
   is loaded (a static object). */
typedef const QviAddInModule* (*QviAddInModuleFn)(void);

#ifdef __cplusplus
}
#endif

#endif /* QVI_ADDIN_H */
