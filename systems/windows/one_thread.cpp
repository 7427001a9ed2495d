// The calls on threads that the C++ library makes, for a program of one thread: with
// them the linker leaves out the compiler's library of threads, a tenth of the program.
// One that is missing here brings that library back, and the linker names the twins.

#include <pthread.h>

#include <cerrno>
#include <iterator>

namespace {

void* values[8] = {};  // by key
pthread_key_t nKeys = 0;

}  // namespace

int pthread_once(pthread_once_t* pDone, void (*pFunction)()) {
  if (*pDone == PTHREAD_ONCE_INIT) {
    *pDone = 1;
    pFunction();
  }
  return 0;
}

// What the thread leaves behind goes with the program.
int pthread_key_create(pthread_key_t* pKey, void (*)(void*)) {
  if (nKeys == std::size(values)) return EAGAIN;
  *pKey = nKeys++;
  return 0;
}

void* pthread_getspecific(pthread_key_t key) { return values[key]; }

int pthread_setspecific(pthread_key_t key, const void* pValue) {
  values[key] = const_cast<void*>(pValue);
  return 0;
}

// Nobody else can hold one.
int pthread_mutex_init(pthread_mutex_t*, const pthread_mutexattr_t*) { return 0; }
int pthread_mutex_lock(pthread_mutex_t*) { return 0; }
int pthread_mutex_unlock(pthread_mutex_t*) { return 0; }
int pthread_mutex_destroy(pthread_mutex_t*) { return 0; }
int pthread_cond_wait(pthread_cond_t*, pthread_mutex_t*) { return 0; }
int pthread_cond_broadcast(pthread_cond_t*) { return 0; }
