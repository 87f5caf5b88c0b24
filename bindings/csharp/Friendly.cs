// What the friendly functions are made of: texts, rooms, characters, and objects for what is open.
using System;
using System.Collections;
using System.Runtime.InteropServices;
using System.Text;

namespace Vexlor32
{
    /// <summary>A character, given as a char or as its code.</summary>
    public struct Code
    {
        readonly int code;

        Code(int code)
        {
            this.code = code;
        }

        /// <summary>The character of a code, of which the low byte counts.</summary>
        public static implicit operator Code(int code)
        {
            return new Code(code);
        }

        /// <summary>A character of the encoding.</summary>
        public static implicit operator Code(char character)
        {
            return new Code(character == 0 ? 0 : Texts.Encoded(character.ToString())[0]);
        }

        /// <summary>The code of the character.</summary>
        public static implicit operator int(Code character)
        {
            return character.code;
        }
    }

    /// <summary>What is open until it is closed, by its own method or at the end of a using block.</summary>
    public abstract class Handle : IDisposable
    {
        readonly long none;
        long handle;

        internal Handle(long handle, long none)
        {
            this.handle = handle;
            this.none = none;
        }

        internal long Opened
        {
            get
            {
                if (handle == none) throw new ObjectDisposedException(GetType().Name);
                return handle;
            }
        }

        internal void Forget()
        {
            handle = none;
        }

        internal abstract void End();

        /// <summary>Closes it, unless it is closed.</summary>
        public void Dispose()
        {
            if (handle != none) End();
        }
    }

    /// <summary>How texts become bytes.</summary>
    public static class Texts
    {
        const int LeastHostRoom = 1 << 18;  // no program is started with a longer text in its command line or environment
        const int Latin1 = 28591;
        const int Utf8 = 65001;
        static Encoding encoding = Strict(Native.Windows ? AnsiCodePage() : Encoding.GetEncoding(Latin1));

        /// <summary>The code page of texts: at first that of the system on Windows, else Latin-1. It must be one of single bytes.</summary>
        public static Encoding Encoding
        {
            get { return encoding; }
            set
            {
                if (!value.IsSingleByte) throw new ArgumentException(value.WebName + " is no code page of single bytes");
                encoding = Strict(value);
            }
        }

        // With an exception for characters that it does not have.
        static Encoding Strict(Encoding encoding)
        {
            var strict = (Encoding)encoding.Clone();
            strict.EncoderFallback = EncoderFallback.ExceptionFallback;
            return strict;
        }

        static Encoding AnsiCodePage()
        {
            // Newer runtimes have the code pages in an assembly of their own.
            Type provider = Type.GetType("System.Text.CodePagesEncodingProvider, System.Text.Encoding.CodePages");
            if (provider != null) Encoding.RegisterProvider((EncodingProvider)provider.GetProperty("Instance").GetValue(null));
            int page = GetACP();
            return Encoding.GetEncoding(page == Utf8 ? Latin1 : page);
        }

        internal static byte[] Encoded(string text)
        {
            if (text == null) return null;
            if (text.IndexOf('\0') >= 0) throw new ArgumentException("the text has a NUL in it");
            byte[] bytes = new byte[encoding.GetByteCount(text) + 1];
            encoding.GetBytes(text, 0, text.Length, bytes, 0);
            return bytes;
        }

        internal static string Decoded(byte[] bytes)
        {
            if (bytes == null) return null;
            int end = Array.IndexOf(bytes, (byte)0);
            return encoding.GetString(bytes, 0, end < 0 ? bytes.Length : end);
        }

        internal static string At(IntPtr address)
        {
            if (address == IntPtr.Zero) return null;
            int size = 0;
            while (Marshal.ReadByte(address, size) != 0) ++size;
            byte[] bytes = new byte[size];
            Marshal.Copy(address, bytes, 0, size);
            return encoding.GetString(bytes);
        }

        internal static long Size(byte[] text)
        {
            return text == null ? 0 : text.Length - 1;
        }

        internal static long HostRoom()
        {
            long most = LeastHostRoom;
            foreach (DictionaryEntry variable in Environment.GetEnvironmentVariables())
                most = Math.Max(most, 4L * (((string)variable.Key).Length + ((string)variable.Value).Length) + 2);
            return most;
        }

        internal static byte[] Destination(long room)
        {
            if (room > int.MaxValue) throw new ArgumentException("the result could need " + room + " bytes");
            return new byte[Math.Max(room, 1)];
        }

        internal static byte[] Editable(byte[] text, long room)
        {
            if (text == null) return null;
            byte[] bytes = Destination(Math.Max(text.Length, room));
            text.CopyTo(bytes, 0);
            return bytes;
        }

        // The block, which has to have the bytes that the call needs; in front of the place, too, where `before` is below 0.
        internal static Pinned Within(byte[] block, long needed, int before = 0)
        {
            long front = Math.Max(-(long)before, 0);
            if (block != null && block.Length < needed + front)
                throw new ArgumentException(block.Length + " bytes, where the call needs " + (needed + front));
            return new Pinned(block, (int)front);
        }

        [DllImport("kernel32", ExactSpelling = true)]
        static extern int GetACP();
    }
}
