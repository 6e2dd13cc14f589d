/*
 * An example add-in material model: isotropic linear elasticity (Hooke's
 * law) with Young's modulus E and Poisson's ratio Nu. In Voigt order
 * xx, yy, zz, xy, yz, zx with engineering shear strains,
 *
 *   D = E / ((1 + Nu)(1 - 2 Nu)) *
 *       | 1-Nu  Nu    Nu    0          0          0          |
 *       | Nu    1-Nu  Nu    0          0          0          |
 *       | Nu    Nu    1-Nu  0          0          0          |
 *       | 0     0     0     (1-2Nu)/2  0          0          |
 *       | 0     0     0     0          (1-2Nu)/2  0          |
 *       | 0     0     0     0          0          (1-2Nu)/2  |
 *
 * (Timoshenko and Goodier 1970, Theory of Elasticity, 3rd ed., sec. 6);
 * a stress update is sigma + D * dstrain.
 */
#include <stdlib.h>
#include <string.h>

#include "addins/QviAddIn.h"

typedef struct {
  double e;  /* Young's modulus, kPa */
  double nu; /* Poisson's ratio */
} Elastic;

static void* create(void) {
  Elastic* m = (Elastic*)malloc(sizeof *m);
  if (m) {
    m->e = 1e5;
    m->nu = 0.3;
  }
  return m;
}

static int set_field(void* self, const char* name, const char* value) {
  Elastic* m = (Elastic*)self;
  char* end;
  double v = strtod(value, &end);
  if (end == value || *end != '\0') return 1;
  if (strcmp(name, "E") == 0)
    m->e = v;
  else if (strcmp(name, "Nu") == 0)
    m->nu = v;
  else
    return 2;
  return 0;
}

/* Positive definiteness of D needs E > 0 and -1 < Nu < 0.5. */
static int initialize(void* self) {
  const Elastic* m = (const Elastic*)self;
  return (m->e > 0 && m->nu > -1 && m->nu < 0.5) ? 0 : 3;
}

static int calculate_matrix(void* self, const QviMatlPoint* at, double* d) {
  const Elastic* m = (const Elastic*)self;
  const double f = m->e / ((1 + m->nu) * (1 - 2 * m->nu));
  int i, j;
  (void)at;
  for (i = 0; i < 36; ++i) d[i] = 0;
  for (i = 0; i < 3; ++i)
    for (j = 0; j < 3; ++j) d[i * 6 + j] = f * (i == j ? 1 - m->nu : m->nu);
  for (i = 3; i < 6; ++i) d[i * 6 + i] = f * (1 - 2 * m->nu) / 2;
  return 0;
}

static int update_stresses(void* self, const QviMatlPoint* at, const double* dstrain, double* stress) {
  double d[36];
  int i, j;
  calculate_matrix(self, at, d);
  for (i = 0; i < 6; ++i) {
    double s = at->stress[i];
    for (j = 0; j < 6; ++j) s += d[i * 6 + j] * dstrain[j];
    stress[i] = s;
  }
  return 0;
}

static void dispose(void* self) { free(self); }

static const QviAddInField fields[] = {{"E", "100000", "Young's modulus (kPa)"},
                                       {"Nu", "0.3", "Poisson's ratio"}};

static const QviAddInMethod methods[] = {
    {"Initialize", QVI_SIG_INITIALIZE, (QviMethodFn)initialize},
    {"CalculateMatrix", QVI_SIG_CALCULATE_MATRIX, (QviMethodFn)calculate_matrix},
    {"UpdateStresses", QVI_SIG_UPDATE_STRESSES, (QviMethodFn)update_stresses},
    {"Dispose", QVI_SIG_DISPOSE, (QviMethodFn)dispose}};

static const QviAddInType types[] = {
    {"LinearElastic", "isotropic linear elasticity", fields, 2, methods, 4, create, set_field}};

static const QviAddInModule module = {QVI_ADDIN_ABI_VERSION, "Linear elastic model", types, 1};

QVI_ADDIN_EXPORT const QviAddInModule* QviGetAddIn(void) { return &module; }
