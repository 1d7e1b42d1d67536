// Placeholder until the folder has its first source.
