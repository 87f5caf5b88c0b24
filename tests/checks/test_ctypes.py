"""A Python program that loads the library through ctypes, knowing nothing but names and argument types."""
import ctypes
import ctypes.util
import unittest

from build import LIBRARY, entries


class Ctypes(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.library = ctypes.CDLL(str(LIBRARY))

    def text(self, name, room, *arguments):
        function = self.library[name]
        function.restype = ctypes.c_char_p
        return function(*arguments, ctypes.create_string_buffer(room))

    def test_calls_by_any_name(self):
        for name in ("AllTrim", "_alltrim", "alltrim"):
            self.assertEqual(self.text(name, 10, b"  a b  "), b"a b")
        self.assertEqual(self.text("strcenter", 10, b"ab", 6, b"-"), b"--ab--")
        self.assertEqual(self.library.stralltrim(b"  abc ", ctypes.create_string_buffer(7)), 3)

    def test_names_of_the_c_library_are_ours_by_name(self):
        c_library = ctypes.CDLL(ctypes.util.find_library("c"))
        self.assertEqual(self.library.isalpha(b"ab1", 3), 0)
        self.assertEqual(self.library.isalpha(b"ab1", 2), 1)
        self.assertTrue(c_library.isalpha(ord("a")))
        self.assertFalse(c_library.isalpha(ord("1")))

    def test_every_name_is_found(self):
        for _, _, names in entries():
            for name in names:
                self.assertTrue(ctypes.cast(self.library[name], ctypes.c_void_p).value, name)


if __name__ == "__main__":
    unittest.main()
