#!/usr/bin/perl
# SQL::Translator reading a live database through its DBI parser.
use strict;
use warnings;
use Time::HiRes qw(time);
use SQL::Translator;

my ($dsn, $user) = @ARGV;
my $start = time;
my $translator = SQL::Translator->new(
  parser => 'DBI',
  parser_args => {dsn => $dsn, db_user => $user // '', db_password => ''},
  producer => sub { return 'none' },  # only its reading counts
);
defined $translator->translate or die 'SQL::Translator: ', substr($translator->error, 0, 200), "\n";
my @tables = $translator->schema->get_tables;
my $columns = 0;
for my $table (@tables) {
  my @fields = $table->get_fields;
  $columns += @fields;
}
printf qq({"peer": "SQL::Translator", "tables": %d, "columns": %d, "seconds": %.6f}\n),
  scalar @tables, $columns, time - $start;
