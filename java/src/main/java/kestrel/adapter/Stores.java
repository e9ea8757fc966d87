package kestrel.adapter;

import kestrel.adapter.Request.Location;

/** The folders that a host gives: its own, which has a folder for each kind of file, and the repository. */
record Stores(String local, String repository) {
  private static final String LOCAL = "the local store";
  private static final String REPOSITORY = "the repository";

  /** `folder` is one of the repository. */
  Store of(String kind, Location location, String folder) throws Refusal {
    if (location == Location.LOCAL) return new Store(LOCAL, local, kind);
    return new Store(
        folder.isEmpty() ? REPOSITORY : "the folder \"" + folder + "\" of the repository", repository, folder);
  }
}
