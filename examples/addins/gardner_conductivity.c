/*
 * An example add-in function: hydraulic conductivity of an unsaturated soil
 * as an exponential function of suction (Gardner 1958):
 *
 *   k(psi) = KSat * exp(-Alpha * psi)      for psi >= 0 (suction, kPa)
 *   k(psi) = KSat                          for psi <  0 (positive pressure)
 *
 * Gardner, W.R. (1958). Some steady-state solutions of the unsaturated
 * moisture flow equation with application to evaporation from a water
 * table. Soil Science 85(4), 228-232.
 *
 * It shows every method a function type can offer: Calculate, Initialize
 * (checks the fields), SetID, Review, MaxPV and Dispose.
 */
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "addins/QviAddIn.h"

typedef struct {
  double ksat;  /* saturated conductivity, m/s */
  double alpha; /* 1/kPa */
  int id;
} GardnerK;

static void* create(void) {
  GardnerK* k = (GardnerK*)malloc(sizeof *k);
  if (k) {
    k->ksat = 1e-5;
    k->alpha = 0.05;
    k->id = 0;
  }
  return k;
}

static int set_field(void* self, const char* name, const char* value) {
  GardnerK* k = (GardnerK*)self;
  char* end;
  double v = strtod(value, &end);
  if (end == value || *end != '\0') return 1;
  if (strcmp(name, "KSat") == 0)
    k->ksat = v;
  else if (strcmp(name, "Alpha") == 0)
    k->alpha = v;
  else
    return 2;
  return 0;
}

static int initialize(void* self) {
  const GardnerK* k = (const GardnerK*)self;
  return (k->ksat > 0 && k->alpha > 0) ? 0 : 3;
}

static int calculate(void* self, const double* x, const double* y, double* out) {
  const GardnerK* k = (const GardnerK*)self;
  (void)y;
  *out = *x <= 0 ? k->ksat : k->ksat * exp(-k->alpha * *x);
  return 0;
}

static int set_id(void* self, int id) {
  ((GardnerK*)self)->id = id;
  return 0;
}

static int review(void* self, char* text, size_t size) {
  const GardnerK* k = (const GardnerK*)self;
  snprintf(text, size, "Gardner conductivity #%d: KSat=%g m/s, Alpha=%g 1/kPa", k->id, k->ksat, k->alpha);
  return 0;
}

/* Beyond the suction where k has fallen to 1e-6 of KSat the curve carries
   no information worth plotting. */
static int max_pv(void* self, double* out) {
  const GardnerK* k = (const GardnerK*)self;
  *out = log(1e6) / k->alpha;
  return 0;
}

static void dispose(void* self) { free(self); }

static const QviAddInField fields[] = {
    {"KSat", "1e-5", "saturated hydraulic conductivity (m/s)"},
    {"Alpha", "0.05", "rate of decrease with suction (1/kPa)"}};

static const QviAddInMethod methods[] = {
    {"Calculate", QVI_SIG_CALCULATE, (QviMethodFn)calculate},
    {"Initialize", QVI_SIG_INITIALIZE, (QviMethodFn)initialize},
    {"SetID", QVI_SIG_SET_ID, (QviMethodFn)set_id},
    {"Review", QVI_SIG_REVIEW, (QviMethodFn)review},
    {"MaxPV", QVI_SIG_MAX_PV, (QviMethodFn)max_pv},
    {"Dispose", QVI_SIG_DISPOSE, (QviMethodFn)dispose}};

static const QviAddInType types[] = {{"GardnerK", "Gardner (1958) exponential conductivity", fields, 2,
                                      methods, 6, create, set_field}};

static const QviAddInModule module = {QVI_ADDIN_ABI_VERSION, "Gardner conductivity", types, 1};

QVI_ADDIN_EXPORT const QviAddInModule* QviGetAddIn(void) { return &module; }
