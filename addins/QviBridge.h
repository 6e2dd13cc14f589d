/*
 * QviBridge.h - the calls of the add-in bridge library (file base name
 * "Qvi.MngSrv.Interop"), as the document library sees them.
 *
 * Add-in authors do not need this header (they need QviAddIn.h). The
 * document library resolves these twelve exports by name into its entry
 * table (Common/ExternalObject.h); the bridge implements them over native
 * add-ins.
 *
 * Every call that can fail returns 0 for success or a nonzero QviBridgeError,
 * and then writes a NUL-terminated UTF-8 reason into `err` (at most `size`
 * bytes; `err` may be NULL).
 */
#ifndef QVI_BRIDGE_H
#define QVI_BRIDGE_H

#include <stddef.h>

#include "addins/QviAddIn.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef enum QviBridgeError {
  QVI_BRIDGE_OK = 0,
  QVI_BRIDGE_NOT_LOADED = 1,     /* the file could not be opened */
  QVI_BRIDGE_NOT_ADDIN = 2,      /* the library has no QVI_ADDIN_ENTRY export */
  QVI_BRIDGE_INCOMPATIBLE = 3,   /* wrong interface version or a malformed description */
  QVI_BRIDGE_NO_TYPE = 4,        /* no type of that name */
  QVI_BRIDGE_NO_METHOD = 5,      /* no method of that name, or another signature */
  QVI_BRIDGE_BAD_FIELD = 6,      /* no field of that name, or its value refused */
  QVI_BRIDGE_CREATE_FAILED = 7,  /* the type's create gave no instance */
  QVI_BRIDGE_CALL_FAILED = 8,    /* a method returned a nonzero code */
  QVI_BRIDGE_BAD_ARGUMENT = 9    /* a null pointer where one is needed */
} QviBridgeError;

/* An opened add-in library; lives until the process ends. */
typedef struct QviAssembly QviAssembly;
/* One instance of a loaded type; released by its "Dispose" delegate. */
typedef struct QviObject QviObject;

/* A method bound to an instance: call fn (cast to the signature's type) with
   self as its first argument. */
typedef struct QviDelegate {
  void* self;
  QviMethodFn fn;
  int signature;
} QviDelegate;

/* One named value of an argument block. */
typedef struct QviValue {
  const char* name;
  const char* value;
} QviValue;

/* Receives one type of a scan: its name and description, the names of its
   methods, and its fields. */
typedef void (*QviScanSink)(void* context, const char* type, const char* description,
                            const char* const* methods, int method_count,
                            const QviAddInField* fields, int field_count);

/* The twelve entries, in the order of the entry table. */
typedef int (*TestAddInCompatibilityImpl_Fn)(const QviAssembly* assembly, char* err, size_t size);
typedef int (*ScanTypeImpl_Fn)(const QviAssembly* assembly, QviScanSink sink, void* context, char* err,
                               size_t size);
typedef int (*LoadTypeImpl_Fn)(const QviAssembly* assembly, const char* type, QviObject** out, char* err,
                               size_t size);
/* Stores the field values of the next initialisation call (checked against
   the type's fields; a later block replaces an earlier one). */
typedef int (*CreateMethodArgumentsImpl_Fn)(QviObject* object, const QviValue* values, int count, char* err,
                                            size_t size);
typedef int (*CreateCalculateMatrixImpl_Fn)(QviObject* object, QviDelegate* out, char* err, size_t size);
typedef int (*CreateUpdateStressesImpl_Fn)(QviObject* object, QviDelegate* out, char* err, size_t size);
/* Binds the method `method` of the instance, which must have `signature`. The
   "Dispose" delegate always exists: it calls the type's Dispose, when
   offered, and releases the bridge's hold of the instance. */
typedef int (*CreateDelegateFunctorImpl_Fn)(QviObject* object, const char* method, int signature,
                                            QviDelegate* out, char* err, size_t size);
typedef int (*CreateCalculateForceImpl_Fn)(QviObject* object, QviDelegate* out, char* err, size_t size);
typedef int (*CreateCalculateShearForceImpl_Fn)(QviObject* object, QviDelegate* out, char* err, size_t size);
/* The initialisation call: sets the fields of the last argument block, then
   calls "Initialize" when the type offers it. */
typedef int (*CreateInitializeImpl_Fn)(QviObject* object, char* err, size_t size);
/* Kept for the suite's managed bridges; native add-ins have nothing to
   collect, so this does nothing. */
typedef void (*PerformBlockingGC_Fn)(void);
/* Opens the add-in at `path` (UTF-8), once per path per process. */
typedef int (*CreateAssembly_Fn)(const char* path, QviAssembly** out, char* err, size_t size);

#ifdef __cplusplus
}
#endif

#endif /* QVI_BRIDGE_H */
