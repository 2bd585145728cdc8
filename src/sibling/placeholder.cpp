// Removed with the folder's first source.
