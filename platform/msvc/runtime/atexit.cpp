// The C runtime keeps what is to run at the end of the program.
extern "C" {

int __cdecl _crt_atexit(void(__cdecl*)());

int __cdecl atexit(void(__cdecl* pfn)())
{
    return _crt_atexit(pfn);
}

} // extern "C"
