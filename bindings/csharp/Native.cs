// Finds the library and binds its functions; what the exact declarations are made of.
using System;
using System.Collections.Generic;
using System.IO;
using System.Runtime.InteropServices;

namespace Vexlor32
{
    // The functions are bound by name and not by DllImport, which knows one file name only: the library's differs with system and bits.
    internal static class Native
    {
        internal static readonly bool Windows = Path.DirectorySeparatorChar == '\\';
        const int Now = 2;
        static IntPtr library;  // since the first call: a program sees why loading failed, and may try again

        internal static Function Bind<Function>(string name)
        {
            if (library == IntPtr.Zero) library = Load();
            IntPtr address = Windows ? GetProcAddress(library, name) : dlsym(library, name);
            if (address == IntPtr.Zero)
                throw new EntryPointNotFoundException("the library has no function " + name + "; it is older than these declarations");
            return Marshal.GetDelegateForFunctionPointer<Function>(address);
        }

        // VEXLOR32_LIBRARY may name the file. Else it lies beside the assembly or the program, or where a package has it, or the system finds it.
        static IEnumerable<string> Places(string file, string system)
        {
            string named = Environment.GetEnvironmentVariable("VEXLOR32_LIBRARY");
            if (!string.IsNullOrEmpty(named))
            {
                yield return named;
                yield break;
            }
            string package = Path.Combine("runtimes", system, "native");
            foreach (string folder in new[] { Path.GetDirectoryName(typeof(Native).Assembly.Location), AppContext.BaseDirectory })
            {
                if (string.IsNullOrEmpty(folder)) continue;
                yield return Path.Combine(folder, file);
                yield return Path.Combine(folder, package, file);
            }
            yield return file;
        }

        static IntPtr Load()
        {
            int bits = 8 * IntPtr.Size;
            string file = Windows ? "Vexlor" + bits + ".dll" : "libvexlor32.so.5";
            string system = Windows ? (bits == 64 ? "win-x64" : "win-x86") : "linux-x64";
            var looked = new List<string>();
            foreach (string place in Places(file, system))
            {
                if (place != file && !File.Exists(place))
                {
                    looked.Add(place + ": no such file");
                    continue;
                }
                IntPtr loaded = Windows ? LoadLibraryW(place) : dlopen(place, Now);
                if (loaded != IntPtr.Zero) return loaded;
                looked.Add(place + ": " + (Windows ? "error " + Marshal.GetLastWin32Error() : Marshal.PtrToStringAnsi(dlerror())));
            }
            throw new DllNotFoundException("cannot load " + file + " into this program of " + bits +
                                           " bits; VEXLOR32_LIBRARY may name the file. Tried " + string.Join("; ", looked));
        }

        // The library reads texts up to their NUL.
        internal static byte[] Text(byte[] text)
        {
            if (text != null && Array.IndexOf(text, (byte)0) < 0) throw new ArgumentException("a text must end with NUL");
            return text;
        }

        internal static int[] Number(int[] number)
        {
            if (number != null && number.Length == 0) throw new ArgumentException("an array of one number, not an empty one");
            return number;
        }

        [DllImport("kernel32", ExactSpelling = true, SetLastError = true, CharSet = CharSet.Unicode)]
        static extern IntPtr LoadLibraryW(string file);
        [DllImport("kernel32", ExactSpelling = true, CharSet = CharSet.Ansi)]
        static extern IntPtr GetProcAddress(IntPtr module, string name);
        [DllImport("libdl.so.2")]
        static extern IntPtr dlopen(string file, int flags);
        [DllImport("libdl.so.2")]
        static extern IntPtr dlsym(IntPtr module, string name);
        [DllImport("libdl.so.2")]
        static extern IntPtr dlerror();
    }

    // An array that stays where it is while the library has its address, from `front` bytes behind its start.
    internal sealed class Pinned : IDisposable
    {
        readonly GCHandle handle;
        readonly IntPtr start;

        internal readonly IntPtr Pointer;

        internal Pinned(byte[] array, int front = 0)
        {
            if (array == null) return;
            handle = GCHandle.Alloc(array, GCHandleType.Pinned);
            start = handle.AddrOfPinnedObject();
            Pointer = IntPtr.Add(start, front);
        }

        // Where the address lies in the array.
        internal int? Offset(IntPtr address)
        {
            if (address == IntPtr.Zero || start == IntPtr.Zero) return null;
            return (int)(address.ToInt64() - start.ToInt64());
        }

        public void Dispose()
        {
            if (handle.IsAllocated) handle.Free();
        }
    }
}
