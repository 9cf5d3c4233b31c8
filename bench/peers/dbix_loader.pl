#!/usr/bin/perl
# DBIx::Class::Schema::Loader: classes for every table, made in memory.
use strict;
use warnings;
use Time::HiRes qw(time);
use DBIx::Class::Schema::Loader;

my ($dsn, $user) = @ARGV;
my $start = time;
{
  package Measured::Schema;
  use base 'DBIx::Class::Schema::Loader';
  __PACKAGE__->loader_options(naming => 'current', quiet => 1, skip_load_external => 1);
}
my $schema = Measured::Schema->connect($dsn, $user // '', '');
my @sources = $schema->sources;
my $columns = 0;
$columns += scalar $schema->source($_)->columns for @sources;
printf qq({"peer": "DBIx::Class::Schema::Loader", "tables": %d, "columns": %d, "seconds": %.6f}\n),
  scalar @sources, $columns, time - $start;
